#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace ORVLib::Board {

struct Authority {
    std::uint32_t roles = 0;
    std::uint32_t partitions = 0;
};

/// The header of every request and response.
struct Telegram {
    std::uint32_t processId = 0;
    std::string sessionId;
    unsigned char language = 0;
    Authority authority;

    /// The fields of a request's telegram. REQUIRES: bytes.size() == TelegramLayout::SIZE.
    static Telegram parse(const std::string& bytes);

    std::string format() const;
};

/// The text of a field that a NUL ends, or the field's end.
std::string readField(const std::string& bytes, std::size_t offset, std::size_t size);

}  // namespace ORVLib::Board
