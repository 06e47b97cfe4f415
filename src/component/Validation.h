#pragma once

#include <string>

namespace ORVLib::Gui {

/// True for a text of digits only, and for an empty one.
inline bool isAllDigits(const std::string& text) {
    return text.find_first_not_of("0123456789") == std::string::npos;
}

/// True when `value` has more than `maxLength` bytes, and for every value when that is negative.
inline bool isLongerThan(const std::string& value, int maxLength) {
    return maxLength < 0 || value.size() > static_cast<std::size_t>(maxLength);
}

inline bool startsOrEndsWith(const std::string& text, char character) {
    return !text.empty() && (text.front() == character || text.back() == character);
}

}  // namespace ORVLib::Gui
