#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// Records: lists of texts of printable ASCII, each ended by one NUL byte.
namespace ORVLib::Board {

using Record = std::vector<std::string>;

/// What a text of a record may be.
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

/// The texts; none when a byte is no printable ASCII or the last NUL is missing.
std::optional<Record> parseTexts(const std::string& bytes);

/// The texts of `bytes` that fit `count` fields, once or, as `rows`, any number of times.
std::optional<Record> parseFields(const std::string& bytes, const Field* fields, std::size_t count,
                                  bool rows);

/// The texts of a record with exactly these fields; none when they do not fit.
template <std::size_t COUNT>
std::optional<Record> parseRecord(const std::string& bytes, const Field (&fields)[COUNT]) {
    return parseFields(bytes, fields, COUNT, false);
}

/// The texts of any number of rows, one row behind the other.
template <std::size_t COUNT>
std::optional<Record> parseRows(const std::string& bytes, const Field (&fields)[COUNT]) {
    return parseFields(bytes, fields, COUNT, true);
}

/// A list without rows is one NUL byte, because a page takes no payload of no bytes.
std::string formatRecord(const Record& texts);

}  // namespace ORVLib::Board
