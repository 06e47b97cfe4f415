#include "daemon/LoginClient.h"

#include <arpa/inet.h>

#include "item/Device.h"

namespace ORVLib::Board {

LoginClient LoginClient::parse(const std::string& text) {
    const std::size_t blank = text.find(' ');
    if (blank == std::string::npos || !Device::isId(text.substr(blank + 1))) {
        return {text, ""};
    }
    return {text.substr(0, blank), text.substr(blank + 1)};
}

std::string LoginClient::getNetwork() const {
    in6_addr parsed{};
    if (::inet_pton(AF_INET6, address.c_str(), &parsed) != 1) {
        return address;
    }
    constexpr std::size_t NETWORK_SIZE = 8;
    const std::size_t size = IN6_IS_ADDR_V4MAPPED(&parsed) ? sizeof parsed : NETWORK_SIZE;
    return {reinterpret_cast<const char*>(parsed.s6_addr), size};
}

}  // namespace ORVLib::Board
