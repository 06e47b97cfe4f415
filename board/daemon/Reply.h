#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "daemon/Fault.h"
#include "orv/PException.h"
#include "wire/Telegram.h"

namespace ORVLib::Board {

/// The response to one request: one message, or two when there is a payload.
struct Reply {
    std::uint32_t type = 0;
    std::string header;
    std::optional<std::string> payload;

    static Reply make(std::uint32_t type, const Telegram& telegram) {
        return {type, telegram.format(), std::nullopt};
    }
    static Reply error(const PException& exception);

    /// Damages the reply to a request of this type as the fault wants it.
    void damage(FaultKind kind, std::uint32_t requestType);

    /// The messages as they are sent.
    std::string frame() const;
};

}  // namespace ORVLib::Board
