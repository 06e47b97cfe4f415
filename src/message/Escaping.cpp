#include "message/Escaping.h"

#include <array>
#include <cstring>
#include <string_view>

#include "base/Hex.h"
#include "gui/MessageMgr.h"

// The escaping operations of MessageMgr. Pages pass megabytes through them: each reads every byte
// at most twice, through a table, and does not copy a text without bytes to escape.

namespace ORVLib::Gui {

namespace {

/// The text that replaces a byte. The structure has 8 bytes, so that one move copies all of it,
/// whatever the length of the text; the next one overwrites the rest.
struct Replacement {
    char text[6];
    unsigned char length;
    bool differs;
};

using ReplacementTable = std::array<Replacement, 256>;

constexpr std::string_view htmlEntity(unsigned char byte) {
    switch (byte) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case ' ':
            return "&nbsp;";
        default:
            return {};
    }
}

constexpr bool isPercentEncoded(unsigned char byte) {
    return byte == '#' || byte >= 0x80;
}

constexpr ReplacementTable unchangedBytes() {
    ReplacementTable table{};
    for (unsigned int byte = 0; byte < table.size(); ++byte) {
        table[byte] = {{static_cast<char>(byte)}, 1, false};
    }
    return table;
}

constexpr ReplacementTable htmlTable() {
    ReplacementTable table = unchangedBytes();
    for (unsigned int byte = 0; byte < table.size(); ++byte) {
        const std::string_view entity = htmlEntity(static_cast<unsigned char>(byte));
        for (std::size_t i = 0; i < entity.size(); ++i) {
            table[byte].text[i] = entity[i];
        }
        if (!entity.empty()) {
            table[byte].length = static_cast<unsigned char>(entity.size());
            table[byte].differs = true;
        }
    }
    return table;
}

constexpr ReplacementTable urlTable() {
    ReplacementTable table = unchangedBytes();
    for (unsigned int byte = 0; byte < table.size(); ++byte) {
        if (isPercentEncoded(static_cast<unsigned char>(byte))) {
            table[byte] = {{'%', Hex::DIGITS[byte >> 4], Hex::DIGITS[byte & 0xf]}, 3, true};
        }
    }
    table[' '] = {{'+'}, 1, true};
    return table;
}

constexpr ReplacementTable HTML_TABLE = htmlTable();
constexpr ReplacementTable URL_TABLE = urlTable();

void replaceBytes(std::string& text, const ReplacementTable& table) {
    std::size_t size = 0;
    bool differs = false;
    for (const char character : text) {
        const Replacement& replacement = table[static_cast<unsigned char>(character)];
        size += replacement.length;
        differs |= replacement.differs;
    }
    if (!differs) {
        return;
    }
    std::string result(size + sizeof(Replacement), '\0');
    char* out = result.data();
    for (const char character : text) {
        const Replacement& replacement = table[static_cast<unsigned char>(character)];
        std::memcpy(out, &replacement, sizeof replacement);
        out += replacement.length;
    }
    result.resize(size);
    text = std::move(result);
}

}  // namespace

void MessageMgr::convertStr(std::string& text, const std::string& from, const std::string& to) {
    std::size_t match = from.empty() ? std::string::npos : text.find(from);
    if (match == std::string::npos) {
        return;
    }
    std::string result;
    result.reserve(text.size());
    std::size_t copied = 0;
    while (match != std::string::npos) {
        result.append(text, copied, match - copied).append(to);
        copied = match + from.size();
        match = text.find(from, copied);
    }
    result.append(text, copied, std::string::npos);
    text = std::move(result);
}

void printEscaped(Output& output, std::string_view text) {
    std::size_t printed = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const Replacement& replacement = HTML_TABLE[static_cast<unsigned char>(text[i])];
        if (replacement.differs) {
            output << text.substr(printed, i - printed)
                   << std::string_view(replacement.text, replacement.length);
            printed = i + 1;
        }
    }
    output << text.substr(printed);
}

void MessageMgr::convertHTML(std::string& text) {
    replaceBytes(text, HTML_TABLE);
}

void MessageMgr::encodeURL(std::string& text) {
    replaceBytes(text, URL_TABLE);
}

}  // namespace ORVLib::Gui
