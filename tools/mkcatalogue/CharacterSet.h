#pragma once

#include <iconv.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace ORVLib::Catalogue {

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

}  // namespace ORVLib::Catalogue
