#pragma once

#include <string_view>

namespace ORVLib::Gui {

/// Takes the next token off the front of `rest`, as strtok() finds them: runs of delimiters count
/// as one, and those in front are skipped. Returns false when nothing but delimiters is left.
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
