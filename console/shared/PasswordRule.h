#pragma once

#include <algorithm>
#include <string>

namespace Console {

constexpr int SHORTEST_PASSWORD = 8;
constexpr int LONGEST_PASSWORD = 32;

/// What a new password must be: 8 to 32 printable ASCII characters, none of them a blank.
inline bool isGoodPassword(const std::string& password) {
    return password.size() >= SHORTEST_PASSWORD && password.size() <= LONGEST_PASSWORD &&
           std::all_of(password.begin(), password.end(),
                       [](char character) { return character > ' ' && character <= '~'; });
}

}  // namespace Console
