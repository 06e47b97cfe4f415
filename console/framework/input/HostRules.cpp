#include "framework/input/HostRules.h"

#include "framework/backend/Digits.h"

namespace Console {

bool isHostName(const std::string& name) {
    constexpr char CHARACTERS[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-.";
    constexpr char NOT_AT_ENDS[] = "-.";
    return !name.empty() && name.find_first_not_of(CHARACTERS) == std::string::npos &&
           name.find_first_of(NOT_AT_ENDS) != 0 &&
           name.find_last_of(NOT_AT_ENDS) != name.size() - 1 &&
           name.find("..") == std::string::npos;
}

bool isHostAddress(const std::string& address) {
    constexpr std::size_t MOST_DIGITS = 3;
    constexpr int LOOPBACK = 127;
    constexpr int FIRST_GROUP = 224;
    const int network = readDigits(address.substr(0, address.find('.')), MOST_DIGITS);
    return network > 0 && network != LOOPBACK && network < FIRST_GROUP;
}

}  // namespace Console
