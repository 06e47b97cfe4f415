#include "item/BoardClock.h"

#include <algorithm>
#include <climits>

#include "common/ParseNumber.h"
#include "wire/Calendar.h"
#include "wire/Fields.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::BoardClock {

namespace {

constexpr Field SOURCE = word("manual|servers");
const char* const SERVERS = "servers";
constexpr Field SERVER = orEmpty(ADDRESS);

// The content that is written. Date and time count with the source "manual" only, and are both
// empty when the time is kept.
enum TimeField { TIME_DATE, TIME_TIME, TIME_ZONE, TIME_SOURCE, TIME_SERVER };
constexpr Field TIME_FIELDS[] = {text(0, 64), text(0, 64), ZONE, SOURCE, SERVER, SERVER};

// The content that is stored: the seconds that the board's clock is ahead, and the rest as written.
enum StoredField { STORED_OFFSET, STORED_ZONE };
constexpr Field STORED[] = {number(INT_MIN, INT_MAX), ZONE, SOURCE, SERVER, SERVER};

// The content in a backup.
enum SettingField { SETTING_ZONE, SETTING_SOURCE, SETTING_SERVER };
constexpr Field SETTINGS[] = {ZONE, SOURCE, SERVER, SERVER};

// The clock stops here: later days cannot be written.
constexpr std::int64_t LAST_SECOND = (std::int64_t{LAST_DAY} + 1) * SECONDS_PER_DAY - 1;

bool isStored(const std::string& content) {
    return parseRecord(content, STORED).has_value();
}

int parseOffset(const std::string& stored) {
    return *parseNumber(parseTexts(stored)->at(STORED_OFFSET), INT_MIN, INT_MAX);
}

// True when neither date nor time is given: the clock keeps running, whatever its new zone is.
bool isTimeKept(const Record& fields) {
    return fields[TIME_DATE].empty() && fields[TIME_TIME].empty();
}

// The present offset. In the new zone, too, the clock must not be before 1970, or it would not run.
std::int64_t keepOffset(const BoardState& state, const std::string& zone) {
    return std::max(state.getTimeOffset(), -BoardState::getMachineTime() - *parseZone(zone));
}

// The offset of the time that is set to the machine's. The event log has no times before 1970.
std::int64_t measureOffset(const Call& call, const Record& fields) {
    if (fields[TIME_SOURCE] == SERVERS) {
        return 0;
    }
    if (isTimeKept(fields)) {
        return keepOffset(call.state, fields[TIME_ZONE]);
    }
    const std::int64_t time = std::int64_t{*parseDay(fields[TIME_DATE])} * SECONDS_PER_DAY +
                              *parseTime(fields[TIME_TIME]) - *parseZone(fields[TIME_ZONE]);
    if (time < 0) {
        throw boardError(ERROR_BAD_REQUEST, "the time is before 1970 in UTC", call.id);
    }
    return time - BoardState::getMachineTime();
}

}  // namespace

bool isTime(const std::string& content) {
    const auto record = parseRecord(content, TIME_FIELDS);
    if (!record) {
        return false;
    }
    const Record& fields = *record;
    return fields[TIME_SOURCE] == SERVERS ? !fields[TIME_SERVER].empty()
                                          : isTimeKept(fields) || (parseDay(fields[TIME_DATE]) &&
                                                                   parseTime(fields[TIME_TIME]));
}

std::string readSettings(BoardState& state) {
    Record fields = *parseTexts(readValid(state, ITEM_CLOCK, isStored));
    fields.erase(fields.begin());
    return formatRecord(fields);
}

bool isSettings(const std::string& content) {
    const auto fields = parseRecord(content, SETTINGS);
    return fields && ((*fields)[SETTING_SOURCE] != SERVERS || !(*fields)[SETTING_SERVER].empty());
}

std::int64_t restoreSettings(const BoardState& state, std::string& content) {
    Record fields = *parseTexts(content);
    const std::int64_t offset =
        fields[SETTING_SOURCE] == SERVERS ? 0 : keepOffset(state, fields[SETTING_ZONE]);
    fields.insert(fields.begin(), std::to_string(offset));
    content = formatRecord(fields);
    return offset;
}

void start(BoardState& state) {
    const auto stored = state.readItem(ITEM_CLOCK);
    if (stored && isStored(*stored)) {  // reading a damaged one fails
        state.setTimeOffset(parseOffset(*stored));
    }
}

std::string read(const Call& call) {
    Record fields = *parseTexts(readValid(call.state, ITEM_CLOCK, isStored));
    const std::int64_t local = std::clamp<std::int64_t>(
        call.state.getTime() + *parseZone(fields[STORED_ZONE]), 0, LAST_SECOND);
    fields[STORED_OFFSET] = formatTime(static_cast<int>(local % SECONDS_PER_DAY));
    fields.insert(fields.begin(), formatDay(local / SECONDS_PER_DAY));
    return formatRecord(fields);
}

void write(const Call& call) {
    Record fields = *parseTexts(call.content);
    const std::int64_t offset = measureOffset(call, fields);
    fields.erase(fields.begin());
    fields[STORED_OFFSET] = std::to_string(offset);
    const std::string stored = formatRecord(fields);
    if (!isStored(stored)) {
        throw boardError(ERROR_BAD_REQUEST, "the time is too far from the machine's", call.id);
    }
    if (call.state.readItem(ITEM_CLOCK) != stored) {
        call.state.writeItem(ITEM_CLOCK, stored,
                             call.makeEvent(EventCode::SETTINGS_CHANGED, "clock"));
        call.state.setTimeOffset(offset);
    }
}

}  // namespace ORVLib::Board::BoardClock
