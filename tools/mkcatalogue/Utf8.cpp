#include "Utf8.h"

namespace ORVLib::Catalogue {

namespace {

std::size_t utf8LengthFromLead(unsigned int lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xc0 || lead >= 0xf8) {
        return 0;
    }
    return lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
}

}  // namespace

std::size_t utf8Length(std::string_view text, std::uint32_t& codePoint) {
    const unsigned int lead = text.empty() ? 0xffU : static_cast<unsigned char>(text[0]);
    const std::size_t length = utf8LengthFromLead(lead);
    if (length == 0 || length > text.size()) {
        return 0;
    }
    codePoint = length == 1 ? lead : lead & (0xffU >> (length + 1));
    for (const char next : text.substr(1, length - 1)) {
        const unsigned int byte = static_cast<unsigned char>(next);
        if ((byte & 0xc0U) != 0x80) {
            return 0;
        }
        codePoint = codePoint << 6 | (byte & 0x3fU);
    }
    constexpr std::uint32_t LOWEST[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = codePoint >= 0xd800 && codePoint <= 0xdfff;
    return codePoint < LOWEST[length] || codePoint > 0x10ffff || surrogate ? 0 : length;
}

}  // namespace ORVLib::Catalogue
