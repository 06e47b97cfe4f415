#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "CharacterSet.h"

/// A message catalogue as people edit it: numbered texts in a UTF-8 file, which may have names.
namespace ORVLib::Catalogue {

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

    /// One text: where it is, what it is called (may be empty), and its bytes.
    struct Entry {
        std::size_t line;
        std::string name;
        std::string bytes;
    };

    /// The texts by their numbers.
    const std::map<std::uint32_t, Entry>& entries() const { return m_entries; }

    /// The strings from number 0 on, in the character set. REQUIRES: there are no problems.
    std::vector<std::string> strings() const;

private:
    void readLine(std::size_t line, std::string_view text);
    bool readNumber(std::size_t line, std::string_view& text, std::uint32_t& number);
    std::string takeName(std::size_t line, std::string_view& text);
    std::string readText(std::size_t line, std::string_view text);
    void findGaps();
    void report(std::size_t line, const std::string& text) { m_problems.push_back({line, text}); }

    const CharacterSet& m_characters;
    std::map<std::uint32_t, Entry> m_entries;
    std::map<std::string, std::size_t> m_names;  // their lines
    std::vector<Problem> m_problems;
};

/// The line of the text form, ended by LF, from which TextReader reads `bytes` again exactly.
std::string textLine(std::size_t number, std::string_view bytes, const CharacterSet& characters);

}  // namespace ORVLib::Catalogue
