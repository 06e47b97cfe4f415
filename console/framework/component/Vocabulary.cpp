#include "framework/component/Vocabulary.h"

#include <algorithm>

#include "framework/component/PageText.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

/// Null for an unknown word.
const Word* find(const Vocabulary& words, const std::string& word) {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [&word](const Word& known) { return word == known.word; });
    return found != words.end() ? &*found : nullptr;
}

}  // namespace

const Vocabulary& roles() {
    static const Vocabulary ROLES = {
        {ROLE_ADMINISTRATOR, TEXT_ROLE_ADMINISTRATOR},
        {ROLE_PARTITION, TEXT_ROLE_PARTITION},
        {"operator", TEXT_ROLE_OPERATOR},
        {"staff", TEXT_ROLE_STAFF},
        {"guest", TEXT_ROLE_GUEST},
    };
    return ROLES;
}

const Vocabulary& severities() {
    static const Vocabulary SEVERITIES = {
        {"info", TEXT_SEVERITY_INFO, TextString::NORMAL_COLOUR},
        {"warning", TEXT_SEVERITY_WARNING, TextString::WARNING_COLOUR},
        {"error", TEXT_SEVERITY_ERROR, TextString::ERROR_COLOUR},
    };
    return SEVERITIES;
}

const Vocabulary& sources() {
    static const Vocabulary SOURCES = {
        {"security", TEXT_SOURCE_SECURITY}, {"settings", TEXT_SOURCE_SETTINGS},
        {"power", TEXT_SOURCE_POWER},       {"hardware", TEXT_SOURCE_HARDWARE},
        {"firmware", TEXT_SOURCE_FIRMWARE}, {"maintenance", TEXT_SOURCE_MAINTENANCE},
    };
    return SOURCES;
}

std::string translate(const Vocabulary& words, const std::string& word) {
    const Word* const known = find(words, word);
    return known != nullptr ? text(known->text) : word;
}

Component makeWord(const Vocabulary& words, const std::string& word) {
    const Word* const known = find(words, word);
    return makeSentence(translate(words, word),
                        known != nullptr ? known->colour : TextString::PLAIN);
}

}  // namespace Console
