#include "pages/system/EventDetail.h"

#include "framework/component/PageText.h"
#include "framework/component/Vocabulary.h"

namespace Console {

namespace {

constexpr int LOGIN_REFUSED = 102;
constexpr int SETTINGS_CHANGED = 201;
constexpr int LAST_OF_HARDWARE = 499;
constexpr int MAINTENANCE_CHANGED = 601;

/// Settings have the name of the page that changes them.
const Vocabulary& words() {
    static const Vocabulary WORDS = {
        {"default language", TEXT_LANGUAGE},
        {"system names", TEXT_SYSTEM_INFORMATION},
        {"clock", TEXT_CLOCK},
        {"network addresses", TEXT_ADDRESSES},
        {"network services", TEXT_SERVICES},
        {"HTTPS port", TEXT_SERVICES},
        {"trap receivers", TEXT_TRAPS},
        {"access list", TEXT_ACCESS_LIST},
        {"network probation", TEXT_PROBATION_TIME},
        {"mail notification", TEXT_MAIL},
        {"maintenance permission", TEXT_STAFF_POWER},
        {"power schedule", TEXT_SCHEDULE},
        {"boot settings", TEXT_BOOT},
        {"own language", TEXT_LANGUAGE},
        {"own refresh interval", TEXT_REFRESH},
        {"own event filter", TEXT_EVENT_FILTER},
        {"partition", TEXT_PARTITION},
        {"partitions", TEXT_USER_PARTITIONS},
        {"system", TEXT_WHOLE_SYSTEM},
        {"fan", TEXT_FAN},
        {"sensor", TEXT_TEMPERATURE},
        {"power supply", TEXT_POWER_SUPPLY},
        {"on", TEXT_ON},
        {"off", TEXT_OFF},
        {"blink", TEXT_BLINKING},
    };
    return WORDS;
}

/// Translates a word with numbers after it, such as "partitions 0 2".
std::string translateNumbered(const std::string& phrase) {
    const std::size_t end = phrase.find_last_not_of(" 0123456789") + 1;
    return translate(words(), phrase.substr(0, end)) + phrase.substr(end);
}

/// Translates a phrase that may name a partition at its end: "boot settings of partition 1".
std::string translatePhrase(const std::string& phrase) {
    constexpr char OF[] = " of ";
    const std::size_t of = phrase.find(OF);
    if (of == std::string::npos) {
        return translateNumbered(phrase);
    }
    return translateNumbered(phrase.substr(0, of)) + ", " +
           translateNumbered(phrase.substr(of + sizeof OF - 1));
}

std::string translateList(const std::string& list) {
    constexpr char SEPARATOR[] = ", ";
    std::string translated;
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + sizeof SEPARATOR - 1) {
        end = list.find(SEPARATOR, start);
        translated +=
            (start > 0 ? SEPARATOR : "") + translatePhrase(list.substr(start, end - start));
    }
    return translated;
}

/// Translates the count of "192.0.2.1, 12 times until 10:20:30".
std::string translateCount(const std::string& detail) {
    constexpr char WORDS[] = "times until";
    const std::size_t found = detail.find(WORDS);
    return found == std::string::npos ? detail
                                      : detail.substr(0, found) + text(TEXT_TIMES_UNTIL) +
                                            detail.substr(found + sizeof WORDS - 1);
}

}  // namespace

std::string translateDetail(int eventCode, const std::string& detail) {
    if (eventCode == LOGIN_REFUSED) {
        return translateCount(detail);
    }
    const bool hasWords = (SETTINGS_CHANGED <= eventCode && eventCode <= LAST_OF_HARDWARE) ||
                          eventCode == MAINTENANCE_CHANGED;
    return hasWords ? translateList(detail) : detail;
}

}  // namespace Console
