#pragma once

#include <cstddef>
#include <cstdint>

namespace ORVLib::Catalogue {

/// Texts are numbered 0 to MAX_NUMBER.
constexpr std::uint32_t MAX_NUMBER = 65535;

/// Bytes of the largest binary catalogue. Bounds the memory and the output that a damaged file
/// can ask for.
constexpr std::size_t MAX_BINARY_SIZE = 64U << 20;

/// Bytes of the largest text form: room for the largest binary with every byte escaped.
constexpr std::size_t MAX_TEXT_SIZE = 512U << 20;

}  // namespace ORVLib::Catalogue
