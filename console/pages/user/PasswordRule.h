#pragma once

#include <algorithm>
#include <string>

#include "framework/input/TextInput.h"

namespace Console {

constexpr int SHORTEST_PASSWORD = 8;
constexpr int LONGEST_PASSWORD = 32;

/// What a new password must be: 8 to 32 printable ASCII characters, none of them a blank. A
/// character reference is not what its user typed, and the log-in page may send another one.
inline bool isGoodPassword(const std::string& password) {
    return password.size() >= SHORTEST_PASSWORD && password.size() <= LONGEST_PASSWORD &&
           std::all_of(password.begin(), password.end(),
                       [](char character) { return character > ' ' && character <= '~'; }) &&
           !hasCharacterReference(password);
}

}  // namespace Console
