#include "EventLog.h"

#include <algorithm>
#include <limits>

#include "Calendar.h"
#include "Contents.h"
#include "Protocol.h"
#include "common/ParseNumber.h"

namespace ORVLib::Board::EventLog {

namespace {

constexpr std::int64_t FOREVER = std::numeric_limits<std::int64_t>::max();

enum QueryField { LOWEST_SEVERITY, SOURCE, FIRST_DAY, LAST_DAY, COUNT, BEFORE };

std::int64_t startOfDay(const std::string& day) {
    return std::int64_t{*parseDay(day)} * SECONDS_PER_DAY;
}

int parseCount(const std::string& text) {
    return *parseNumber(text, 0, std::numeric_limits<int>::max());
}

EventQuery makeQuery(const Record& fields) {
    EventQuery query{};
    query.severity = parseSeverity(fields[LOWEST_SEVERITY]);
    query.source = fields[SOURCE].empty() ? 0 : parseSource(fields[SOURCE]);
    query.from = fields[FIRST_DAY].empty() ? -FOREVER : startOfDay(fields[FIRST_DAY]);
    query.until =
        fields[LAST_DAY].empty() ? FOREVER : startOfDay(fields[LAST_DAY]) + SECONDS_PER_DAY;
    query.count = parseCount(fields[COUNT]);
    query.before = fields[BEFORE].empty() ? FOREVER : parseCount(fields[BEFORE]);
    return query;
}

}  // namespace

std::string answer(const Call& call) {
    const auto fields = parseRecord(call.content, EVENT_QUERY);
    if (!fields) {
        throw boardError(ERROR_BAD_REQUEST, "events are asked for with a record", call.id);
    }
    Record rows;
    for (const StoredEvent& event : call.state.readEvents(makeQuery(*fields))) {
        rows.insert(rows.end(),
                    {std::to_string(event.number), std::to_string(event.time),
                     getName(getSeverity(event.code)), getSourceName(event.code),
                     std::to_string(static_cast<int>(event.code)), event.user, event.detail});
    }
    return formatRecord(rows);
}

std::string readFilter(const Call& call) {
    const std::string& filter = call.getUser().eventFilter;
    if (filter.empty()) {
        return formatRecord({"info", "", "50"});
    }
    if (!isEventFilter(filter)) {
        throw DatabaseError("a user's event filter is damaged", SQLITE_CORRUPT);
    }
    return filter;
}

void writeFilter(const Call& call) {
    User user = call.getUser();
    user.eventFilter = call.content;
    call.state.changeUser(user, call.makeEvent(EventCode::SETTINGS_CHANGED, "own event filter"));
}

}  // namespace ORVLib::Board::EventLog
