#include "BoardClock.h"

#include <algorithm>
#include <climits>

#include "Calendar.h"
#include "Contents.h"
#include "Protocol.h"
#include "common/ParseNumber.h"

namespace ORVLib::Board::BoardClock {

namespace {

enum StoredField { OFFSET, STORED_ZONE };
constexpr Field STORED[] = {number(INT_MIN, INT_MAX), ZONE, CLOCK_SOURCE, orEmpty(ADDRESS),
                            orEmpty(ADDRESS)};

int parseOffset(const std::string& stored) {
    return *parseNumber(parseTexts(stored)->at(OFFSET), INT_MIN, INT_MAX);
}

// Where the time that was set is from the machine's. The event log has no times before 1970.
std::int64_t measureOffset(const Call& call, const Record& fields) {
    if (fields[CLOCK_SOURCE_FIELD] == CLOCK_SERVERS) {
        return 0;
    }
    const std::int64_t time = std::int64_t{*parseDay(fields[CLOCK_DATE])} * SECONDS_PER_DAY +
                              *parseTime(fields[CLOCK_TIME]) - *parseZone(fields[CLOCK_ZONE]);
    if (time < 0) {
        throw boardError(ERROR_BAD_REQUEST, "the time is before 1970 in UTC", call.id);
    }
    return time - (call.state.getTime() - call.state.getTimeOffset());
}

}  // namespace

bool isStored(const std::string& content) {
    return parseRecord(content, STORED).has_value();
}

void start(BoardState& state) {
    const auto stored = state.readItem(ITEM_CLOCK);
    if (stored && isStored(*stored)) {  // whoever reads a damaged one sees an error
        state.setTimeOffset(parseOffset(*stored));
    }
}

std::string read(const Call& call) {
    Record fields = *parseTexts(readFit(call.state, ITEM_CLOCK, isStored));
    const std::int64_t local =
        std::max<std::int64_t>(call.state.getTime() + *parseZone(fields[STORED_ZONE]), 0);
    fields[OFFSET] = formatTime(static_cast<int>(local % SECONDS_PER_DAY));
    fields.insert(fields.begin(), formatDay(local / SECONDS_PER_DAY));
    return formatRecord(fields);
}

void write(const Call& call) {
    Record fields = *parseTexts(call.content);
    const std::int64_t offset = measureOffset(call, fields);
    fields.erase(fields.begin());
    fields[OFFSET] = std::to_string(offset);
    const std::string stored = formatRecord(fields);
    if (!isStored(stored)) {
        throw boardError(ERROR_BAD_REQUEST, "the time is too far from the machine's", call.id);
    }
    call.state.writeItem(ITEM_CLOCK, stored, call.makeEvent(EventCode::SETTINGS_CHANGED, "clock"));
    call.state.setTimeOffset(offset);
}

}  // namespace ORVLib::Board::BoardClock
