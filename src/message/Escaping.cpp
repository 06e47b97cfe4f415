#include <array>
#include <string_view>

#include "gui/MessageMgr.h"

// The escaping operations of MessageMgr. Pages pass megabytes through them: each looks at every
// byte at most twice, through a table, and leaves a text alone that needs nothing.

namespace ORVLib::Gui {

namespace {

using GrowthTable = std::array<unsigned char, 256>;

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

/// How many bytes longer each byte becomes as an entity.
constexpr GrowthTable htmlGrowth() {
    GrowthTable growth{};
    for (unsigned int byte = 0; byte < growth.size(); ++byte) {
        const std::string_view entity = htmlEntity(static_cast<unsigned char>(byte));
        growth[byte] = static_cast<unsigned char>(entity.empty() ? 0 : entity.size() - 1);
    }
    return growth;
}

constexpr GrowthTable HTML_GROWTH = htmlGrowth();

std::size_t growthOf(const std::string& text, const GrowthTable& growth) {
    std::size_t total = 0;
    for (const char character : text) {
        total += growth[static_cast<unsigned char>(character)];
    }
    return total;
}

std::size_t percentEncodedCount(const std::string& text) {
    std::size_t count = 0;
    for (const char character : text) {
        count += isPercentEncoded(static_cast<unsigned char>(character)) ? 1U : 0U;
    }
    return count;
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

void MessageMgr::convertHTML(std::string& text) {
    const std::size_t growth = growthOf(text, HTML_GROWTH);
    if (growth == 0) {
        return;
    }
    std::string result;
    result.reserve(text.size() + growth);
    for (const char character : text) {
        const std::string_view entity = htmlEntity(static_cast<unsigned char>(character));
        if (entity.empty()) {
            result += character;
        } else {
            result += entity;
        }
    }
    text = std::move(result);
}

void MessageMgr::encodeURL(std::string& text) {
    constexpr char DIGITS[] = "0123456789ABCDEF";
    std::string result;
    result.reserve(text.size() + 2 * percentEncodedCount(text));
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte == ' ') {
            result += '+';
        } else if (isPercentEncoded(byte)) {
            result += '%';
            result += DIGITS[byte >> 4];
            result += DIGITS[byte & 0xf];
        } else {
            result += character;
        }
    }
    text = std::move(result);
}

}  // namespace ORVLib::Gui
