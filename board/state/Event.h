#pragma once

#include <cstdint>
#include <string>

namespace ORVLib::Board {

/// Codes of events. The hundreds are the source.
enum class EventCode : int {
    LOGGED_IN = 101,
    LOGIN_REFUSED = 102,
    LOGGED_OUT = 103,
    OWN_PASSWORD_CHANGED = 104,
    PASSWORD_CHANGE_REFUSED = 105,
    USER_ADDED = 106,
    USER_CHANGED = 107,
    USER_REMOVED = 108,
    SETTINGS_CHANGED = 201,
    SETTINGS_RESTORED = 202,
    NETWORK_CONFIRMED = 203,
    NETWORK_EXPIRED = 204,
    NETWORK_UNDONE = 205,
    POWERED_ON = 301,
    POWERED_OFF = 302,
    FORCED_OFF = 303,
    RESET = 304,
    FAN_SLOW = 401,
    FAN_RECOVERED = 402,
    TEMPERATURE_HIGH = 403,
    POWER_SUPPLY_FAILED = 404,
    POWER_SUPPLY_RECOVERED = 405,
    LED_CHANGED = 406,
    IMAGE_RECEIVED = 501,
    FIRMWARE_INSTALLED = 502,
    INSTALLATION_FAILED = 503,
    MAINTENANCE_CHANGED = 601
};

/// In ascending order: a query has a lowest severity.
enum class Severity : int { INFO, WARNING, ERROR };

Severity getSeverity(EventCode code);

/// The names in the event log and in records.
const char* getName(Severity severity);
/// REQUIRES: `name` is a severity's name.
Severity parseSeverity(const std::string& name);

/// The number of hundreds that the source's codes have. REQUIRES: `name` is a source's name.
int parseSource(const std::string& name);
/// As parseSource(), of a code.
int getSource(EventCode code);
/// The source's name, or an empty text for a code that no source has.
const char* getSourceName(EventCode code);

struct Event {
    EventCode code;
    std::string user;
    std::string detail;
};

/// An event that is stored later than it happened.
struct TimedEvent {
    Event event;
    std::int64_t time;  ///< of the board's clock
};

/// An event as the log keeps it.
struct StoredEvent {
    std::int64_t number;
    std::int64_t time;  ///< seconds since 1970, UTC
    EventCode code;
    std::string user;
    std::string detail;
};

/// Which events are wanted. They come newest first.
struct EventQuery {
    Severity severity;    ///< at least
    int source;           ///< hundreds of the codes, 0 for all
    std::int64_t from;    ///< first second
    std::int64_t until;   ///< the second after the last one
    std::int64_t before;  ///< only those with smaller numbers
    int count;            ///< at most
};

}  // namespace ORVLib::Board
