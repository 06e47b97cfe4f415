#include "pages/system/EventList.h"

#include <algorithm>

#include "framework/backend/Board.h"
#include "framework/backend/Digits.h"
#include "framework/backend/UtcTime.h"
#include "framework/component/Components.h"
#include "framework/component/PageChrome.h"
#include "framework/component/PageText.h"
#include "framework/component/Vocabulary.h"
#include "framework/input/Form.h"
#include "orv/CsvInfoAccess.h"
#include "pages/system/EventDetail.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int NO_CODE = 0;

/// An event, as the board returns it.
struct Event {
    explicit Event(const std::vector<std::string>& row)
        : number(row[0]),
          time(row[1]),
          severity(row[2]),
          source(row[3]),
          code(row[4]),
          user(row[5]),
          detail(row[6]) {}
    static constexpr std::size_t FIELDS = 7;

    std::string number;
    std::string time;
    std::string severity;
    std::string source;
    std::string code;
    std::string user;
    std::string detail;
};

std::vector<Event> readEvents(const PageContext& context, const EventQuery& query) {
    Record question;
    for (const std::string* const text : {&query.severity, &query.source, &query.firstDay,
                                          &query.lastDay, &query.count, &query.before}) {
        question.push_back(*text);
    }
    std::vector<Event> events;
    const Record answer = queryRecord(context.requester, ITEM_EVENTS, question);
    for (const auto& row : rowsOf(answer, Event::FIELDS)) {
        events.emplace_back(row);
    }
    return events;
}

/// Explains events: a table has the operator message for the code of an event.
class Explanations {
public:
    explicit Explanations(MessageMgr& messages)
        : m_messages(messages), m_table(skeletonPath("event_messages.csv")) {}

    std::string explain(const Event& event) {
        const int code = readCode(event.code);
        const std::string detail = translateDetail(code, event.detail);
        const std::string message = messageFor(event, code, detail);
        // The detail is appended to a message that does not contain all of it.
        return message.find(detail) != std::string::npos ? message : message + " (" + detail + ')';
    }

private:
    std::string messageFor(const Event& event, int code, const std::string& detail) {
        unsigned int messageId = 0;
        if (m_messages.getCsvExMsgId(m_table, static_cast<unsigned int>(code), messageId)) {
            return m_messages.getMessage(static_cast<int>(messageId), NO_CODE, detail.c_str());
        }
        return text(TEXT_NO_EXPLANATION) + " (" + event.code + ')';
    }

    /// The code; 0, which no event has, when it is not a number.
    static int readCode(const std::string& text) {
        constexpr std::size_t MOST_DIGITS = 9;
        return std::max(readDigits(text, MOST_DIGITS), 0);
    }

    MessageMgr& m_messages;
    ORVLib::ORVUi::CsvInfoAccess m_table;
};

Component makeTable(MessageMgr& messages, const std::vector<Event>& events) {
    Explanations explanations(messages);
    auto table = std::make_unique<Table>(
        std::initializer_list<Text>{TEXT_EVENT_TIME, TEXT_SEVERITY, TEXT_SOURCE, TEXT_EVENT_USER,
                                    TEXT_EXPLANATION},
        TEXT_NO_EVENTS);
    for (const Event& event : events) {
        table->addRow(makeText(utcTime(event.time)), makeWord(severities(), event.severity),
                      makeWord(sources(), event.source),
                      makeText(event.user.empty() ? "-" : event.user),
                      makeSentence(explanations.explain(event)));
    }
    return table;
}

}  // namespace

std::string readBefore(const FormInfo& form) {
    constexpr std::size_t MOST_DIGITS = 10;
    constexpr long long LAST_NUMBER = 0x7fffffff;
    const std::string before = fieldOf(form, BEFORE_FIELD);
    const bool isNumber = isDigits(before) && before.size() <= MOST_DIGITS &&
                          before.front() != '0' && std::stoll(before) <= LAST_NUMBER;
    return isNumber ? before : "";
}

std::unique_ptr<SkeletonPart> makeEventList(
    const PageContext& context, const EventQuery& query, const std::string& path,
    std::vector<std::pair<std::string, std::string>> fields) {
    const std::vector<Event> events = readEvents(context, query);
    auto part = std::make_unique<SkeletonPart>("skeleton_events.txt");
    part->put("table", makeTable(context.messages, events));
    if (!query.before.empty()) {
        part->put("newest", makeLink(addressWith(path, fields), text(TEXT_NEWEST_EVENTS)));
    }
    if (!events.empty() && std::to_string(events.size()) == query.count) {
        fields.emplace_back(BEFORE_FIELD, events.back().number);
        part->put("older", makeLink(addressWith(path, fields), text(TEXT_OLDER_EVENTS)));
    }
    return part;
}

std::unique_ptr<ChoiceInput> makeSeverityInput() {
    auto input = std::make_unique<RadioInput>(SEVERITY_FIELD);
    input->addOptions(severities());
    return input;
}

std::unique_ptr<ChoiceInput> makeSourceInput() {
    auto input = std::make_unique<MenuInput>("source");
    input->addOption("", text(TEXT_SOURCE_ANY));
    input->addOptions(sources());
    return input;
}

std::unique_ptr<NumberInput> makeCountInput() {
    return std::make_unique<NumberInput>("count", 1, MOST_EVENTS);
}

}  // namespace Console
