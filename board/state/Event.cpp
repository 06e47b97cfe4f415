#include "state/Event.h"

#include <algorithm>
#include <iterator>

namespace ORVLib::Board {

namespace {

constexpr const char* SEVERITIES[] = {"info", "warning", "error"};

// By the hundreds of the codes, from 1.
constexpr const char* SOURCES[] = {"security", "settings", "power",
                                   "hardware", "firmware", "maintenance"};
constexpr int CODES_PER_SOURCE = 100;

template <std::size_t COUNT>
int indexOf(const std::string& name, const char* const (&names)[COUNT]) {
    return static_cast<int>(std::find(std::begin(names), std::end(names), name) -
                            std::begin(names));
}

}  // namespace

Severity getSeverity(EventCode code) {
    switch (code) {
        case EventCode::LOGIN_REFUSED:
        case EventCode::PASSWORD_CHANGE_REFUSED:
        case EventCode::NETWORK_EXPIRED:
        case EventCode::FORCED_OFF:
        case EventCode::RESET:
        case EventCode::FAN_SLOW:
        case EventCode::TEMPERATURE_HIGH:
            return Severity::WARNING;
        case EventCode::POWER_SUPPLY_FAILED:
        case EventCode::INSTALLATION_FAILED:
            return Severity::ERROR;
        default:
            return Severity::INFO;
    }
}

const char* getName(Severity severity) {
    return SEVERITIES[static_cast<int>(severity)];
}

Severity parseSeverity(const std::string& name) {
    return static_cast<Severity>(indexOf(name, SEVERITIES));
}

int parseSource(const std::string& name) {
    return indexOf(name, SOURCES) + 1;
}

int getSource(EventCode code) {
    return static_cast<int>(code) / CODES_PER_SOURCE;
}

const char* getSourceName(EventCode code) {
    const int hundreds = getSource(code);
    return hundreds >= 1 && hundreds <= static_cast<int>(std::size(SOURCES)) ? SOURCES[hundreds - 1]
                                                                             : "";
}

}  // namespace ORVLib::Board
