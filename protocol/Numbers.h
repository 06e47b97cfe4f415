#pragma once

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "common/ByteOrder.h"

/// Numbers of 32 bits in telegrams and payloads.
namespace ORVLib::Protocol {

inline std::string formatNumber(std::uint32_t number) {
    unsigned char bytes[4];
    Bytes::write32(bytes, number);
    return {std::begin(bytes), std::end(bytes)};
}

/// REQUIRES: offset + 4 <= bytes.size().
inline std::uint32_t readNumber(std::string_view bytes, std::size_t offset) {
    return Bytes::read32(reinterpret_cast<const unsigned char*>(bytes.data()) + offset);
}

}  // namespace ORVLib::Protocol
