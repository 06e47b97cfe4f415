#include "multicall/ScgiRequest.h"

#include <optional>

#include "common/ParseNumber.h"
#include "multicall/Refusal.h"

namespace ORVLib::MultiCall {

namespace {

constexpr std::string_view DIGITS = "0123456789";
constexpr std::string_view NAME_CHARACTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
constexpr std::string_view LENGTH_NAME = "CONTENT_LENGTH";
constexpr std::string_view CLIENT_HEADER_PREFIX = "HTTP_";

// More digits than the longest header needs.
constexpr std::size_t MOST_DIGITS = 9;
static_assert(LARGEST_HEADER_LIMIT < 100'000'000);

bool isMadeOf(std::string_view characters, std::string_view text) {
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

[[noreturn]] void refuse(const std::string& reason) {
    throw Refusal(Refusal::BAD_REQUEST, reason);
}

std::size_t readLength(std::string_view text, int largest, const std::string& what) {
    if (!isMadeOf(DIGITS, text) || (text.size() > 1 && text[0] == '0')) {
        refuse("the length of the " + what + " is not a number");
    }
    const std::optional<int> length = parseNumber(text, 0, largest);
    if (!length) {
        throw Refusal(Refusal::TOO_LARGE,
                      "the " + what + " has more than " + std::to_string(largest) + " bytes");
    }
    return static_cast<std::size_t>(*length);
}

/// Takes a text and the NUL that ends it from the front of `rest`.
std::string_view takeText(std::string_view& rest) {
    const std::size_t end = rest.find('\0');
    if (end == std::string_view::npos) {
        refuse("the header ends inside a name or value");
    }
    const std::string_view text = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return text;
}

void addParameter(ScgiHeader& header, std::string_view name, std::string_view value) {
    if (!isMadeOf(NAME_CHARACTERS, name)) {
        return;
    }
    const bool isClients = name.substr(0, CLIENT_HEADER_PREFIX.size()) == CLIENT_HEADER_PREFIX;
    if (!header.parameters.emplace(name, value).second && !isClients) {
        refuse("the header has a name twice");
    }
}

}  // namespace

std::size_t measureNetstring(std::string_view received, int largest) {
    const std::string_view digits = received.substr(0, received.find(':'));
    const bool mayGoOn = digits.size() == received.size() && digits.size() < MOST_DIGITS;
    if (mayGoOn && (digits.empty() || isMadeOf(DIGITS, digits))) {
        return 0;
    }
    const std::size_t colonAndComma = 2;
    return digits.size() + readLength(digits, largest, "header") + colonAndComma;
}

ScgiHeader parseScgiHeader(std::string_view netstring, int largestBody) {
    if (netstring.back() != ',') {
        refuse("no comma ends the header");
    }
    std::string_view rest = netstring.substr(netstring.find(':') + 1);
    rest.remove_suffix(1);
    if (takeText(rest) != LENGTH_NAME) {
        refuse("the header does not begin with CONTENT_LENGTH");
    }
    ScgiHeader header;
    const std::string_view length = takeText(rest);
    header.bodySize = readLength(length, largestBody, "body");
    addParameter(header, LENGTH_NAME, length);
    while (!rest.empty()) {
        const std::string_view name = takeText(rest);
        addParameter(header, name, takeText(rest));
    }
    const auto scgi = header.parameters.find("SCGI");
    if (scgi == header.parameters.end() || scgi->second != "1") {
        refuse("the header has no parameter SCGI with the value 1");
    }
    return header;
}

}  // namespace ORVLib::MultiCall
