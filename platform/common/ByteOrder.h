#pragma once

#include <cstdint>

/// Big-endian numbers in byte buffers. On every machine, that is the order on the wire, in
/// catalogue files and in serialised objects.
namespace ORVLib::Bytes {

inline std::uint32_t read32(const unsigned char* from) {
    return static_cast<std::uint32_t>(from[0]) << 24 | static_cast<std::uint32_t>(from[1]) << 16 |
           static_cast<std::uint32_t>(from[2]) << 8 | static_cast<std::uint32_t>(from[3]);
}

inline void write32(unsigned char* to, std::uint32_t number) {
    to[0] = static_cast<unsigned char>(number >> 24);
    to[1] = static_cast<unsigned char>(number >> 16);
    to[2] = static_cast<unsigned char>(number >> 8);
    to[3] = static_cast<unsigned char>(number);
}

/// The signed number whose two's complement the 32 bits are.
inline std::int32_t toSigned(std::uint32_t bits) {
    return bits <= INT32_MAX ? static_cast<std::int32_t>(bits)
                             : static_cast<std::int32_t>(bits - INT32_MAX - 1) + INT32_MIN;
}

inline std::int32_t readSigned32(const unsigned char* from) {
    return toSigned(read32(from));
}

inline void write32(unsigned char* to, std::int32_t number) {
    write32(to, static_cast<std::uint32_t>(number));
}

}  // namespace ORVLib::Bytes
