#pragma once

#include <string_view>

namespace ORVLib::Gui {

/// Writes to std::cout whatever the page has set there: texts are not padded, and numbers are
/// decimal digits. Format flags, width, fill character and locale stay the page's own.
class Output {
public:
    const Output& operator<<(std::string_view text) const;
    const Output& operator<<(char character) const;
    const Output& operator<<(int number) const;
};

inline constexpr Output output;

}  // namespace ORVLib::Gui
