#include "TextForm.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "Limits.h"
#include "Utf8.h"
#include "common/Hex.h"

namespace ORVLib::Catalogue {

namespace {

constexpr std::string_view BLANKS = " \t";
constexpr std::string_view NAME_START = "TEXT_";
constexpr std::string_view NAME_CHARACTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";

bool isBlank(char character) {
    return BLANKS.find(character) != std::string_view::npos;
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

// How much of `text` is a name; 0 when it does not begin with one.
std::size_t nameLength(std::string_view text) {
    const std::size_t length = std::min(text.find_first_not_of(NAME_CHARACTERS), text.size());
    const bool isName = text.substr(0, NAME_START.size()) == NAME_START &&
                        length > NAME_START.size() &&
                        (length == text.size() || isBlank(text[length]));
    return isName ? length : 0;
}

// What makes a line no text at all, comment or not; empty when it is well-formed.
std::string lineFault(std::string_view line) {
    if (line.find('\0') != std::string_view::npos) {
        return "the line holds a NUL byte";
    }
    for (std::size_t length = 0; !line.empty(); line.remove_prefix(length)) {
        std::uint32_t codePoint = 0;
        length = utf8Length(line, codePoint);
        if (length == 0) {
            return "malformed UTF-8";
        }
    }
    return "";
}

std::string codePointName(std::uint32_t codePoint) {
    std::ostringstream name;
    name << "U+" << std::hex << std::uppercase << std::setfill('0') << std::setw(4) << codePoint;
    return name.str();
}

int hexValue(char digit) {
    if (isDigit(digit)) {
        return digit - '0';
    }
    const char lower = static_cast<char>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// Takes the escape that `text` begins with and returns its byte; a problem is put into `fault`.
char takeEscape(std::string_view& text, std::string& fault) {
    const char kind = text.size() > 1 ? text[1] : '\0';
    const bool hex =
        kind == 'x' && text.size() > 3 && hexValue(text[2]) >= 0 && hexValue(text[3]) >= 0;
    const int value = hex ? hexValue(text[2]) * 16 + hexValue(text[3]) : 0;
    text.remove_prefix(std::min<std::size_t>(hex ? 4 : 2, text.size()));
    switch (kind) {
        case 'n':
            return '\n';
        case 't':
            return '\t';
        case '\\':
            return '\\';
        default:
            break;
    }
    if (!hex) {
        fault = "unknown escape; known are \\n, \\t, \\\\ and \\xHH with two hex digits";
    } else if (value == 0) {
        fault = "\\x00 would end the text";
    }
    return static_cast<char>(value);
}

std::string hexEscaped(std::string_view bytes) {
    std::string text;
    for (const char character : bytes) {
        text.append("\\x").append(formatHex({&character, 1}));
    }
    return text;
}

bool isControl(std::string_view character) {
    std::uint32_t codePoint = 0;
    utf8Length(character, codePoint);
    return codePoint < 0x20 || (codePoint >= 0x7f && codePoint < 0xa0);
}

// One character of the text form: `character` is the UTF-8 of `bytes`, empty when there is none.
std::string escaped(const std::string& character, std::string_view bytes) {
    if (character == "\n") {
        return "\\n";
    }
    if (character == "\t") {
        return "\\t";
    }
    if (character == "\\") {
        return "\\\\";
    }
    return character.empty() || isControl(character) ? hexEscaped(bytes) : character;
}

}  // namespace

TextReader::TextReader(std::string_view file, const CharacterSet& characters)
    : m_characters(characters) {
    constexpr std::string_view BYTE_ORDER_MARK = "\xef\xbb\xbf";
    if (file.substr(0, BYTE_ORDER_MARK.size()) == BYTE_ORDER_MARK) {
        file.remove_prefix(BYTE_ORDER_MARK.size());
    }
    for (std::size_t line = 1; !file.empty(); ++line) {
        const std::size_t end = std::min(file.find('\n'), file.size());
        readLine(line, file.substr(0, end));
        file.remove_prefix(std::min(end + 1, file.size()));
    }
    findGaps();
    std::stable_sort(m_problems.begin(), m_problems.end(),
                     [](const Problem& a, const Problem& b) { return a.line < b.line; });
}

std::vector<std::string> TextReader::strings() const {
    std::vector<std::string> strings;
    for (const auto& [number, entry] : m_entries) {
        strings.push_back(entry.bytes);
    }
    return strings;
}

void TextReader::readLine(std::size_t line, std::string_view text) {
    if (!text.empty() && text.back() == '\r') {
        text.remove_suffix(1);
    }
    const std::string fault = lineFault(text);
    if (!fault.empty()) {
        report(line, fault);
    }
    text = text.substr(0, text.find_last_not_of(BLANKS) + 1);
    if (text.empty() || text[0] == '#') {
        return;
    }
    std::uint32_t number = 0;
    if (!readNumber(line, text, number)) {
        return;
    }
    text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
    const std::string name = takeName(line, text);
    const std::string bytes = fault.empty() ? readText(line, text) : "";
    const auto [entry, added] = m_entries.insert({number, Entry{line, name, bytes}});
    if (!added) {
        report(line, "number " + std::to_string(number) + " is already used on line " +
                         std::to_string(entry->second.line));
    }
}

// Takes the number off `text`. Stops adding digits at the limit, so any length is safe.
bool TextReader::readNumber(std::size_t line, std::string_view& text, std::uint32_t& number) {
    const bool negative = text[0] == '-';
    std::size_t length = negative ? 1 : 0;
    while (length < text.size() && isDigit(text[length])) {
        if (number <= MAX_NUMBER) {
            number = number * 10 + static_cast<std::uint32_t>(text[length] - '0');
        }
        ++length;
    }
    if (length == (negative ? 1U : 0U) || (length < text.size() && !isBlank(text[length]))) {
        report(line, "the line does not begin with a number and a blank");
        return false;
    }
    if (negative || number > MAX_NUMBER) {
        report(line, "the number is out of range; numbers are 0 to " + std::to_string(MAX_NUMBER));
        return false;
    }
    text.remove_prefix(length);
    return true;
}

// Takes the name that `text` may begin with off it.
std::string TextReader::takeName(std::size_t line, std::string_view& text) {
    const std::size_t length = nameLength(text);
    std::string name(text.substr(0, length));
    text.remove_prefix(length);
    text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
    const auto [earlier, added] = m_names.insert({name, line});
    if (!name.empty() && !added) {
        report(line, name + " is already used on line " + std::to_string(earlier->second));
    }
    return name;
}

// REQUIRES: `text` is well-formed UTF-8.
std::string TextReader::readText(std::size_t line, std::string_view text) {
    std::string bytes;
    std::string fault;
    while (!text.empty() && fault.empty()) {
        if (text[0] == '\\') {
            bytes += takeEscape(text, fault);
            continue;
        }
        std::uint32_t codePoint = 0;
        const std::size_t length = utf8Length(text, codePoint);
        const std::string encoded = m_characters.encode(std::string(text.substr(0, length)));
        if (encoded.empty()) {
            fault = m_characters.name() + " cannot hold " + codePointName(codePoint);
        }
        bytes += encoded;
        text.remove_prefix(length);
    }
    if (!fault.empty()) {
        report(line, fault);
    }
    return bytes;
}

void TextReader::findGaps() {
    std::uint32_t expected = 0;
    for (const auto& [number, entry] : m_entries) {
        if (number == expected + 1) {
            report(entry.line, "number " + std::to_string(expected) + " is missing");
        } else if (number > expected) {
            report(entry.line, "numbers " + std::to_string(expected) + " to " +
                                   std::to_string(number - 1) + " are missing");
        }
        expected = number + 1;
    }
}

std::string textLine(std::size_t number, std::string_view bytes, const CharacterSet& characters) {
    std::string line = std::to_string(number);
    if (!bytes.empty()) {
        line += ' ';
    }
    for (std::size_t at = 0; at < bytes.size();) {
        std::size_t length = 0;
        const std::string character = characters.decodeFirst(bytes.substr(at), length);
        length = character.empty() ? 1 : length;
        const std::string_view encoded = bytes.substr(at, length);
        const bool atEdge = at == 0 || at + length == bytes.size();
        const bool isMistaken = (atEdge && character == " ") || (at == 0 && nameLength(bytes) > 0);
        line += isMistaken ? hexEscaped(encoded) : escaped(character, encoded);
        at += length;
    }
    return line + '\n';
}

}  // namespace ORVLib::Catalogue
