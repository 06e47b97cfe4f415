#include "item/EventLog.h"

#include <algorithm>
#include <climits>
#include <limits>

#include "common/ParseNumber.h"
#include "wire/Calendar.h"
#include "wire/Fields.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::EventLog {

namespace {

constexpr std::int64_t FOREVER = std::numeric_limits<std::int64_t>::max();

constexpr Field SEVERITY = word("info|warning|error");
constexpr Field EVENT_SOURCE =
    orEmpty(word("security|settings|power|hardware|firmware|maintenance"));
constexpr Field EVENT_COUNT = number(1, 200);  // no more fit into a payload, with the longest texts
constexpr Field FILTER[] = {SEVERITY, EVENT_SOURCE, EVENT_COUNT};
constexpr Field QUERY[] = {SEVERITY,     EVENT_SOURCE, orEmpty(DAY),
                           orEmpty(DAY), EVENT_COUNT,  orEmpty(number(1, INT_MAX))};
enum QueryField { LOWEST_SEVERITY, SOURCE, FIRST_DAY, LAST_DAY, COUNT, BEFORE };

std::int64_t startOfDay(const std::string& day) {
    return std::int64_t{*parseDay(day)} * SECONDS_PER_DAY;
}

int parseCount(const std::string& text) {
    return *parseNumber(text, 0, INT_MAX);
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

bool isQuery(const std::string& content) {
    return parseRecord(content, QUERY).has_value();
}

bool isFilter(const std::string& content) {
    return parseRecord(content, FILTER).has_value();
}

std::string answer(const Call& call) {
    const EventQuery query = makeQuery(*parseTexts(call.content));
    Record rows;
    for (const StoredEvent& event : call.state.readEvents(query)) {
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
    if (!isFilter(filter)) {
        throw DatabaseError("a user's event filter is damaged", SQLITE_CORRUPT);
    }
    return filter;
}

void writeFilter(const Call& call) {
    User user = call.getUser();
    if (user.eventFilter == call.content) {
        return;
    }
    user.eventFilter = call.content;
    call.state.storeUser(user, call.makeEvent(EventCode::SETTINGS_CHANGED, "own event filter"));
}

}  // namespace ORVLib::Board::EventLog
