#pragma once

#include <string>

namespace ORVLib::Gui {

/// True when every byte of `text` is a digit, and for an empty text.
inline bool isAllDigits(const std::string& text) {
    return text.find_first_not_of("0123456789") == std::string::npos;
}

/// True when `value` has more than `maxLength` bytes; every value has more than a negative number.
inline bool isLongerThan(const std::string& value, int maxLength) {
    return maxLength < 0 || value.size() > static_cast<std::size_t>(maxLength);
}

inline bool startsOrEndsWith(const std::string& text, char character) {
    return !text.empty() && (text.front() == character || text.back() == character);
}

}  // namespace ORVLib::Gui
