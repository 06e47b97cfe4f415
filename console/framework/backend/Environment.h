#pragma once

#include <cstdlib>
#include <string>

namespace Console {

/// A variable of the request's environment; empty without it.
inline std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

}  // namespace Console
