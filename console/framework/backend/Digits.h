#pragma once

#include <cstddef>
#include <string>

namespace Console {

/// True for decimal digits, at least one, and nothing else.
bool isDigits(const std::string& text);

/// The number that a text of 1 to `mostDigits` digits says; -1 for any other text. REQUIRES:
/// `mostDigits` is 9 at most.
int readDigits(const std::string& text, std::size_t mostDigits);

/// A number of at least one digit without the zeros in front of it; "0" for zero and for nothing.
std::string withoutLeadingZeros(const std::string& digits);

}  // namespace Console
