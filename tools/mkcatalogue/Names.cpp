#include "Names.h"

#include <algorithm>

namespace ORVLib::Catalogue {

namespace {

bool isPlaceholderEnd(char character) {
    return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9');
}

/// The placeholders of a text, sorted: languages may put them in another order.
std::vector<std::string> placeholdersOf(const std::string& text) {
    std::vector<std::string> placeholders;
    for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1)) {
        if (at + 1 < text.size() && isPlaceholderEnd(text[at + 1])) {
            placeholders.push_back(text.substr(at, 2));
        }
    }
    std::sort(placeholders.begin(), placeholders.end());
    return placeholders;
}

std::string placeOf(const std::string& file, const TextReader::Entry& entry) {
    return file + ':' + std::to_string(entry.line);
}

std::string nameOf(const TextReader::Entry& entry) {
    return entry.name.empty() ? "no name" : entry.name;
}

}  // namespace

std::vector<Problem> findMissing(const TextReader& texts, const TextReader& others,
                                 const std::string& othersFile) {
    std::vector<Problem> problems;
    for (const auto& [number, other] : others.entries()) {
        if (texts.entries().count(number) == 0) {
            problems.push_back({0, "text " + std::to_string(number) + " (" + nameOf(other) +
                                       ") is missing: it is in " + placeOf(othersFile, other)});
        }
    }
    return problems;
}

std::vector<Problem> findDifferences(const TextReader& texts, const TextReader& others,
                                     const std::string& othersFile) {
    std::vector<Problem> problems;
    for (const auto& [number, text] : texts.entries()) {
        const auto found = others.entries().find(number);
        if (found == others.entries().end()) {
            continue;
        }
        const TextReader::Entry& other = found->second;
        const std::string place = placeOf(othersFile, other);
        if (text.name != other.name) {
            problems.push_back(
                {text.line, nameOf(text) + " is called " + nameOf(other) + " in " + place});
        }
        if (placeholdersOf(text.bytes) != placeholdersOf(other.bytes)) {
            problems.push_back({text.line, "the placeholders differ from those in " + place});
        }
    }
    return problems;
}

std::string makeHeader(const TextReader& texts, const std::string& nameSpace) {
    std::string header =
        "// Made by mkcatalogue: change the text forms instead.\n#pragma once\n\n"
        "namespace " +
        nameSpace +
        " {\n\n"
        "/// Numbers of the catalogue's texts.\nenum Text {\n";
    const char* separator = "";
    for (const auto& [number, entry] : texts.entries()) {
        if (!entry.name.empty()) {
            header.append(separator).append("    ").append(entry.name);
            header += " = " + std::to_string(number);
            separator = ",\n";
        }
    }
    return header + "\n};\n\n}  // namespace " + nameSpace + "\n";
}

}  // namespace ORVLib::Catalogue
