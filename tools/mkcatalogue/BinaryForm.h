#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A message catalogue as a page looks its texts up: big-endian offsets and NUL-ended strings.
namespace ORVLib::Catalogue {

/// Throws Failure when the catalogue would exceed MAX_BINARY_SIZE.
std::string makeBinary(const std::vector<std::string>& strings);

/// The strings of a binary catalogue, from a file that may say anything; they point into `file`.
/// A string that the end of the file cuts off ends there. Throws Failure when the count or an
/// offset cannot be true.
std::vector<std::string_view> readBinary(std::string_view file);

}  // namespace ORVLib::Catalogue
