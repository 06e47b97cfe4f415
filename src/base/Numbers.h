#pragma once

#include <climits>
#include <cstdint>
#include <cstdlib>

/// Numbers read from texts as the board's 32-bit C library reads them, on every machine: a number
/// outside 32 bits becomes the nearest one inside.
namespace ORVLib::Gui::Numbers {

inline int saturate(long long number) {
    if (number > INT32_MAX) {
        return INT32_MAX;
    }
    return number < INT32_MIN ? INT32_MIN : static_cast<int>(number);
}

/// As atoi() on the board.
inline int readInt(const char* text) {
    return saturate(std::strtoll(text, nullptr, 10));
}

/// As atol() on the board, modulo 2^32.
inline std::uint32_t readUnsigned(const char* text) {
    return static_cast<std::uint32_t>(readInt(text));
}

}  // namespace ORVLib::Gui::Numbers
