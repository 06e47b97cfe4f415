#include "CharacterSet.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include "Failure.h"
#include "Utf8.h"

namespace ORVLib::Catalogue {

namespace {

// No set whose characters stand for themselves, without shift sequences, needs more.
constexpr std::size_t LONGEST_CHARACTER = 4;

// An empty name would mean the locale's set, and a slash begins options such as //TRANSLIT.
const std::string& plainName(const std::string& name) {
    if (name.empty() || name.find('/') != std::string::npos) {
        throw Failure("unknown character set '" + name + "'; give its name alone");
    }
    return name;
}

}  // namespace

Converter::Converter(const std::string& to, const std::string& from, const std::string& set)
    : m_handle(iconv_open(to.c_str(), from.c_str())) {
    if (reinterpret_cast<std::intptr_t>(m_handle) != -1) {
        return;
    }
    if (errno == EINVAL) {
        throw Failure("unknown character set '" + set + "'; 'iconv --list' shows those known here");
    }
    throw Failure("character set '" + set + "': " + std::strerror(errno));
}

std::string Converter::convert(std::string character) const {
    constexpr auto FAILED = static_cast<std::size_t>(-1);
    char result[64];
    char* in = character.data();
    std::size_t inLeft = character.size();
    char* out = result;
    std::size_t outLeft = sizeof result;
    iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
    if (iconv(m_handle, &in, &inLeft, &out, &outLeft) == FAILED ||
        iconv(m_handle, nullptr, nullptr, &out, &outLeft) == FAILED) {
        return "";
    }
    return std::string(result, out);
}

CharacterSet::CharacterSet(const std::string& name)
    : m_name(plainName(name)), m_fromUtf8(name, "UTF-8", name), m_toUtf8("UTF-8", name, name) {
    for (char character = 1; character < 0x7f; ++character) {
        if (encode({character}) != std::string{character}) {
            throw Failure("character set '" + name + "' cannot be used: ASCII changes in it");
        }
    }
}

std::string CharacterSet::encode(const std::string& character) const {
    const std::string bytes = m_fromUtf8.convert(character);
    return m_toUtf8.convert(bytes) == character ? bytes : "";
}

std::string CharacterSet::decodeFirst(std::string_view bytes, std::size_t& length) const {
    for (length = 1; length <= std::min(bytes.size(), LONGEST_CHARACTER); ++length) {
        const std::string candidate(bytes.substr(0, length));
        std::string character = m_toUtf8.convert(candidate);
        std::uint32_t codePoint = 0;
        const bool single =
            !character.empty() && utf8Length(character, codePoint) == character.size();
        if (single && m_fromUtf8.convert(character) == candidate) {
            return character;
        }
    }
    return "";
}

}  // namespace ORVLib::Catalogue
