#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Records, the format of most items: a list of texts, each ended by one NUL byte.
namespace ORVLib::Protocol {

using Record = std::vector<std::string>;

/// A text counts up to its first NUL. A record without texts is one NUL byte, because the requester
/// takes no payload of no bytes.
inline std::string formatRecord(const Record& texts) {
    std::string bytes;
    for (const std::string& text : texts) {
        bytes.append(text, 0, text.find('\0'));
        bytes += '\0';
    }
    return bytes.empty() ? std::string(1, '\0') : bytes;
}

/// The texts; none when the last NUL is missing. One NUL byte is one empty text.
inline std::optional<Record> parseTexts(std::string_view bytes) {
    if (bytes.empty() || bytes.back() != '\0') {
        return std::nullopt;
    }
    Record texts;
    while (!bytes.empty()) {
        texts.emplace_back(bytes.substr(0, bytes.find('\0')));
        bytes.remove_prefix(texts.back().size() + 1);
    }
    return texts;
}

}  // namespace ORVLib::Protocol
