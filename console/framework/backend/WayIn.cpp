#include "framework/backend/WayIn.h"

#include "framework/backend/Environment.h"

namespace Console {

namespace {

/// The host of a header "Host", or an empty text when it has a character that no host has.
std::string hostOf(const std::string& header) {
    constexpr char CHARACTERS[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-.:[]";
    if (header.find_first_not_of(CHARACTERS) != std::string::npos) {
        return "";
    }
    const std::size_t bracket = header.find(']');  // of an IPv6 address, which has colons
    const std::size_t colon = header.find(':', bracket == std::string::npos ? 0 : bracket);
    return header.substr(0, colon);
}

}  // namespace

WayIn findWayIn() {
    WayIn way = {variable("SERVER_ADDR"), variable("SERVER_PORT"), variable("HTTPS") == "on",
                 variable("REMOTE_ADDR"), hostOf(variable("HTTP_HOST"))};
    if (way.host.empty()) {
        way.host = way.serverAddress;
    }
    return way;
}

std::string makeUrl(bool isEncrypted, const std::string& host, const std::string& port) {
    return (isEncrypted ? "https://" : "http://") + host + ':' + port + '/';
}

}  // namespace Console
