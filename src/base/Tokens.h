#pragma once

#include <string_view>

namespace ORVLib::Gui {

/// Removes the next token from the front of `rest`. As with strtok(), several delimiters count as
/// one, and those before the first token are skipped. Returns false when no token is left.
inline bool takeToken(std::string_view& rest, char delimiter, std::string_view& token) {
    const std::size_t start = rest.find_first_not_of(delimiter);
    if (start == std::string_view::npos) {
        return false;
    }
    rest.remove_prefix(start);
    token = rest.substr(0, rest.find(delimiter));
    rest.remove_prefix(token.size());
    return true;
}

}  // namespace ORVLib::Gui
