#pragma once

#include <algorithm>
#include <string>

#include "framework/input/TextInput.h"

namespace Console {

constexpr int SHORTEST_PASSWORD = 8;
constexpr int LONGEST_PASSWORD = 32;

/// True for a valid new password: 8 to 32 printable ASCII characters without blanks. A character
/// reference is refused, because the user typed another character, for which the log-in page may
/// send something else.
inline bool isGoodPassword(const std::string& password) {
    return password.size() >= SHORTEST_PASSWORD && password.size() <= LONGEST_PASSWORD &&
           std::all_of(password.begin(), password.end(),
                       [](char character) { return character > ' ' && character <= '~'; }) &&
           !hasCharacterReference(password);
}

}  // namespace Console
