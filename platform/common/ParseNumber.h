#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace ORVLib {

/// Reads a whole text as a decimal number from `lowest` to `highest`. Blanks, a "+" and trailing
/// characters are refused.
inline std::optional<int> parseNumber(std::string_view text, int lowest, int highest) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < lowest || number > highest) {
        return std::nullopt;
    }
    return number;
}

}  // namespace ORVLib
