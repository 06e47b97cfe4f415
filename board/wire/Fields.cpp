#include "wire/Fields.h"

#include <arpa/inet.h>

#include <algorithm>
#include <string_view>

#include "common/ParseNumber.h"
#include "wire/Calendar.h"

namespace ORVLib::Board {

namespace {

// Records are compared as texts, so a number has one form only.
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

// inet_pton() takes no leading zeros, so an address has one form only, too.
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
            return isLong(text, field) && isPrintable(text);
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
                       [](char character) { return character >= ' ' && character <= '~'; });
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

}  // namespace ORVLib::Board
