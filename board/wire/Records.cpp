#include "wire/Records.h"

#include <arpa/inet.h>

#include <algorithm>
#include <string_view>

#include "common/ParseNumber.h"
#include "wire/Calendar.h"

namespace ORVLib::Board {

namespace {

bool isPrintable(char character) {
    return character >= ' ' && character <= '~';
}

// Whoever compares two records compares the texts: a number is written in one way only.
bool isNumber(const std::string& text, int lowest, int highest) {
    const auto number = parseNumber(text, lowest, highest);
    return number && std::to_string(*number) == text;
}

bool isWord(const std::string& text, std::string_view words) {
    while (!words.empty()) {
        const std::string_view word = words.substr(0, words.find('|'));
        if (text == word) {
            return true;
        }
        words.remove_prefix(std::min(word.size() + 1, words.size()));
    }
    return false;
}

bool isLong(const std::string& text, const Field& field) {
    return text.size() >= static_cast<std::size_t>(field.lowest) &&
           text.size() <= static_cast<std::size_t>(field.highest);
}

// inet_pton() takes no leading zeros: an address is written in one way only, too.
bool isAddress(const std::string& text) {
    in_addr address{};
    return ::inet_pton(AF_INET, text.c_str(), &address) == 1;
}

}  // namespace

bool isValid(const Field& field, const std::string& text) {
    if (text.empty() && field.mayBeEmpty) {
        return true;
    }
    switch (field.kind) {
        case Field::Kind::TEXT:
            return isLong(text, field);
        case Field::Kind::NUMBER:
            return isNumber(text, field.lowest, field.highest);
        case Field::Kind::WORD:
            return isWord(text, field.words);
        case Field::Kind::FLAGS:
            return isLong(text, field) && text.find_first_not_of("01") == std::string::npos;
        case Field::Kind::ADDRESS:
            return isAddress(text);
        case Field::Kind::DAY:
            return parseDay(text).has_value();
        case Field::Kind::TIME:
            return parseTime(text).has_value();
        case Field::Kind::ZONE:
            return parseZone(text).has_value();
    }
    return false;
}

bool isPrintable(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return isPrintable(character); });
}

std::optional<Record> parseTexts(const std::string& bytes) {
    if (bytes.empty() || bytes.back() != '\0') {
        return std::nullopt;
    }
    Record record(1);
    for (const char byte : bytes.substr(0, bytes.size() - 1)) {
        if (byte == '\0') {
            record.emplace_back();
        } else if (isPrintable(byte)) {
            record.back() += byte;
        } else {
            return std::nullopt;
        }
    }
    return record;
}

std::optional<Record> parseFields(const std::string& bytes, const Field* fields, std::size_t count,
                                  bool rows) {
    auto record = parseTexts(bytes);
    if (rows && record == Record{""}) {
        return Record();
    }
    if (!record || (rows ? record->size() % count != 0 : record->size() != count)) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < record->size(); ++i) {
        if (!isValid(fields[i % count], (*record)[i])) {
            return std::nullopt;
        }
    }
    return record;
}

std::string formatRecord(const Record& texts) {
    std::string bytes;
    for (const std::string& text : texts) {
        bytes += text;
        bytes += '\0';
    }
    return bytes.empty() ? std::string(1, '\0') : bytes;
}

}  // namespace ORVLib::Board
