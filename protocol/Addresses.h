#pragma once

#include <arpa/inet.h>

#include <cstdint>
#include <optional>
#include <string>

#include "common/ByteOrder.h"

/// IPv4 addresses, as board and web server write them.
namespace ORVLib::Protocol {

constexpr int ADDRESS_BITS = 32;

/// A number for an IPv4 address, also for one in an IPv6 form such as ::ffff:192.0.2.1. None for
/// any other text.
inline std::optional<std::uint32_t> parseAddress(const std::string& text) {
    constexpr int IPV4_OFFSET = 12;
    unsigned char bytes[sizeof(in_addr)];
    if (::inet_pton(AF_INET, text.c_str(), bytes) == 1) {
        return Bytes::read32(bytes);
    }
    in6_addr address{};
    if (::inet_pton(AF_INET6, text.c_str(), &address) != 1 || !IN6_IS_ADDR_V4MAPPED(&address)) {
        return std::nullopt;
    }
    return Bytes::read32(address.s6_addr + IPV4_OFFSET);
}

/// True for an address in the network of another one with so many mask bits. REQUIRES: `maskBits`
/// is 1 to 32.
inline bool isInNetwork(const std::string& address, const std::string& network, int maskBits) {
    const auto first = parseAddress(address);
    const auto second = parseAddress(network);
    return first && second && ((*first ^ *second) >> (ADDRESS_BITS - maskBits)) == 0;
}

}  // namespace ORVLib::Protocol
