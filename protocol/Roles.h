#pragma once

#include <cstdint>

namespace ORVLib::Protocol {

/// Roles of a user, as bits in a telegram. A user with none of them administers partitions.
enum Role : std::uint32_t {
    ROLE_SYSTEM_ADMINISTRATOR = 1U << 31,
    ROLE_TECHNICAL_STAFF = 1U << 30,
    ROLE_GUEST = 1U << 29,
    ROLE_OPERATOR = 1U << 28
};

}  // namespace ORVLib::Protocol
