#pragma once

#include <string_view>

namespace ORVLib::Gui {

/// Writes to std::cout without its format: texts are not padded, and numbers are decimal digits.
/// Format flags, width, fill character and locale that a page sets remain as they are.
class Output {
public:
    const Output& operator<<(std::string_view text) const;
    const Output& operator<<(char character) const;
    const Output& operator<<(int number) const;

    /// Ends the line and sends what is printed so far, so that long lists show as they come.
    void endLine() const;

    /// Sends what is printed so far. Returns false when not all of the page was sent.
    bool flush() const;
};

inline constexpr Output output;

}  // namespace ORVLib::Gui
