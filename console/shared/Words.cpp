#include "shared/Words.h"

namespace Console {

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
        {"info", TEXT_SEVERITY_INFO},
        {"warning", TEXT_SEVERITY_WARNING},
        {"error", TEXT_SEVERITY_ERROR},
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

std::string say(ORVLib::Gui::MessageMgr& messages, const Words& words, const std::string& word) {
    for (const Word& known : words) {
        if (word == known.word) {
            return messages.getString(known.text);
        }
    }
    return word;
}

void addOptions(ChoiceInput& input, ORVLib::Gui::MessageMgr& messages, const Words& words) {
    for (const Word& word : words) {
        input.addOption(word.word, messages.getString(word.text));
    }
}

}  // namespace Console
