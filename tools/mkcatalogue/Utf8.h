#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ORVLib::Catalogue {

/// Bytes of the well-formed UTF-8 character that `text` begins with, and its code point; 0 when
/// it is overlong, cut off, a surrogate or beyond U+10FFFF.
std::size_t utf8Length(std::string_view text, std::uint32_t& codePoint);

}  // namespace ORVLib::Catalogue
