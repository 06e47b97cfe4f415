#include "shared/component/Words.h"

#include <algorithm>

using namespace ORVLib::Gui;

namespace Console {

namespace {

/// Null for a word that is not among them.
const Word* find(const Words& words, const std::string& word) {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [&word](const Word& known) { return word == known.word; });
    return found != words.end() ? &*found : nullptr;
}

}  // namespace

const Words& roles() {
    static const Words ROLES = {
        {"administrator", TEXT_ROLE_ADMINISTRATOR},
        {ROLE_PARTITION, TEXT_ROLE_PARTITION},
        {"operator", TEXT_ROLE_OPERATOR},
        {"staff", TEXT_ROLE_STAFF},
        {"guest", TEXT_ROLE_GUEST},
    };
    return ROLES;
}

const Words& severities() {
    static const Words SEVERITIES = {
        {"info", TEXT_SEVERITY_INFO, TextString::NORMAL_COLOUR},
        {"warning", TEXT_SEVERITY_WARNING, TextString::WARNING_COLOUR},
        {"error", TEXT_SEVERITY_ERROR, TextString::ERROR_COLOUR},
    };
    return SEVERITIES;
}

const Words& sources() {
    static const Words SOURCES = {
        {"security", TEXT_SOURCE_SECURITY}, {"settings", TEXT_SOURCE_SETTINGS},
        {"power", TEXT_SOURCE_POWER},       {"hardware", TEXT_SOURCE_HARDWARE},
        {"firmware", TEXT_SOURCE_FIRMWARE}, {"maintenance", TEXT_SOURCE_MAINTENANCE},
    };
    return SOURCES;
}

std::string say(MessageMgr& messages, const Words& words, const std::string& word) {
    const Word* const known = find(words, word);
    return known != nullptr ? messages.getString(known->text) : word;
}

Component makeWord(MessageMgr& messages, const Words& words, const std::string& word) {
    const Word* const known = find(words, word);
    return makeSentence(say(messages, words, word),
                        known != nullptr ? known->colour : TextString::PLAIN);
}

}  // namespace Console
