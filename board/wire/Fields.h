#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "wire/Protocol.h"

/// The fields of records: which texts the board takes.
namespace ORVLib::Board {

/// What the text of a field may be.
struct Field {
    enum class Kind { TEXT, NUMBER, WORD, FLAGS, ADDRESS, DAY, TIME, ZONE };

    Kind kind;
    int lowest;   ///< of a number, or of a text's length
    int highest;  ///< likewise
    bool mayBeEmpty;
    const char* words;  ///< between bars
};

/// Printable ASCII of so many characters.
constexpr Field text(int shortest, int longest) {
    return {Field::Kind::TEXT, shortest, longest, false, ""};
}
/// A decimal number without leading zeros.
constexpr Field number(int lowest, int highest) {
    return {Field::Kind::NUMBER, lowest, highest, false, ""};
}
/// One of several words: "on|off".
constexpr Field word(const char* words) {
    return {Field::Kind::WORD, 0, 0, false, words};
}
/// So many characters '0' or '1'.
constexpr Field flags(int count) {
    return {Field::Kind::FLAGS, count, count, false, ""};
}
constexpr Field orEmpty(Field field) {
    field.mayBeEmpty = true;
    return field;
}

constexpr Field FLAG = flags(1);
constexpr Field PORT = number(1, 65535);
constexpr Field ADDRESS = {Field::Kind::ADDRESS, 0, 0, false, ""};  ///< dotted IPv4
constexpr Field MASK_BITS = number(1, 32);
constexpr Field DAY = {Field::Kind::DAY, 0, 0, false, ""};    ///< "YYYY-MM-DD"
constexpr Field TIME = {Field::Kind::TIME, 0, 0, false, ""};  ///< "HH:MM:SS"
constexpr Field ZONE = {Field::Kind::ZONE, 0, 0, false, ""};  ///< "+HH:MM" or "-HH:MM"

bool isValid(const Field& field, const std::string& text);

/// True for a text of printable ASCII.
bool isPrintable(const std::string& text);

/// The texts of `bytes` that fit `count` fields, once or, as `rows`, any number of times.
std::optional<Record> parseFields(const std::string& bytes, const Field* fields, std::size_t count,
                                  bool rows);

/// The texts of a record with exactly these fields; none when they do not fit.
template <std::size_t COUNT>
std::optional<Record> parseRecord(const std::string& bytes, const Field (&fields)[COUNT]) {
    return parseFields(bytes, fields, COUNT, false);
}

/// The texts of any number of rows, one row after the other.
template <std::size_t COUNT>
std::optional<Record> parseRows(const std::string& bytes, const Field (&fields)[COUNT]) {
    return parseFields(bytes, fields, COUNT, true);
}

}  // namespace ORVLib::Board
