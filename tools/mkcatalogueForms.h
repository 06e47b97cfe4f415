#pragma once

#include <iconv.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// The two forms of a message catalogue: numbered texts in a UTF-8 file that people edit, and the
/// binary file of big-endian offsets and NUL-ended strings that a page looks its texts up in.
namespace ORVLib::Catalogue {

/// Texts are numbered 0 to MAX_NUMBER.
constexpr std::uint32_t MAX_NUMBER = 65535;

/// Bytes of the largest binary catalogue. Bounds the memory and the output that a damaged file
/// can ask for.
constexpr std::size_t MAX_BINARY_SIZE = 64U << 20;

/// Bytes of the largest text form: room for the largest binary with every byte escaped.
constexpr std::size_t MAX_TEXT_SIZE = 512U << 20;

/// What went wrong, as one line for the operator.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One direction of character conversion.
class Converter {
public:
    /// Throws Failure that names `set`, the one of both that the user chose.
    Converter(const std::string& to, const std::string& from, const std::string& set);
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() { iconv_close(m_handle); }

    /// Converts the bytes of one character, ending in the initial shift state; empty when that is
    /// impossible.
    std::string convert(std::string character) const;

private:
    iconv_t m_handle;
};

/// The character set of a catalogue's strings.
///
/// Only exact conversions count. The system maps some characters to a look-alike and back to
/// another character (in EUC-JP the yen sign becomes a backslash); those are not in the set.
class CharacterSet {
public:
    /// Throws Failure when the system does not know `name`, or when ASCII texts would change in
    /// it: such strings could not be ended by a NUL.
    explicit CharacterSet(const std::string& name);

    const std::string& name() const { return m_name; }

    /// The bytes of one character, given in UTF-8; empty when the set cannot hold it.
    std::string encode(const std::string& character) const;

    /// The character that `bytes` begins with, in UTF-8, and in `length` how many bytes it takes;
    /// empty when there is none that encode() would turn into these very bytes.
    std::string decodeFirst(std::string_view bytes, std::size_t& length) const;

private:
    std::string m_name;
    Converter m_fromUtf8;
    Converter m_toUtf8;
};

/// A fault in the text form; lines count from 1.
struct Problem {
    std::size_t line;
    std::string text;
};

/// Reads the text form to its end, whatever is wrong in it.
class TextReader {
public:
    /// `characters` must outlive the reader.
    TextReader(std::string_view file, const CharacterSet& characters);

    /// Everything that is wrong, in line order.
    const std::vector<Problem>& problems() const { return m_problems; }

    /// The strings from number 0 on, in the character set. REQUIRES: there are no problems.
    std::vector<std::string> strings() const;

private:
    struct Entry {
        std::size_t line;
        std::string bytes;
    };

    void readLine(std::size_t line, std::string_view text);
    bool readNumber(std::size_t line, std::string_view& text, std::uint32_t& number);
    std::string readText(std::size_t line, std::string_view text);
    void findGaps();
    void report(std::size_t line, const std::string& text) { m_problems.push_back({line, text}); }

    const CharacterSet& m_characters;
    std::map<std::uint32_t, Entry> m_entries;
    std::vector<Problem> m_problems;
};

/// The line of the text form, ended by LF, from which TextReader reads `bytes` again exactly.
std::string textLine(std::size_t number, std::string_view bytes, const CharacterSet& characters);

/// Throws Failure when the catalogue would exceed MAX_BINARY_SIZE.
std::string makeBinary(const std::vector<std::string>& strings);

/// The strings of a binary catalogue, from a file that may say anything; they point into `file`.
/// A string that the end of the file cuts off ends there. Throws Failure when the count or an
/// offset cannot be true.
std::vector<std::string_view> readBinary(std::string_view file);

}  // namespace ORVLib::Catalogue
