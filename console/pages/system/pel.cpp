// The events of the server that pass the user's own filter.

#include "framework/backend/Board.h"
#include "framework/component/Vocabulary.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "gui/ORVGUIUtil.h"
#include "pages/system/EventList.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

class EventsMain : public ConsoleMain {
public:
    explicit EventsMain(FormInfo& form) : ConsoleMain(form, functionOf(TEXT_EVENTS)) {}

protected:
    Component makeBody(const PageContext& context) override {
        EventQuery query = readFilter(context);
        query.before = readBefore(context.form);
        auto events = makeEventList(context, query, ORVGUIUtil::getCGIPath(getFunction()), {});
        events->putSentence("note", describe(query));
        return makeListPart(getFunction(), TEXT_EVENTS_PURPOSE, std::move(events));
    }

private:
    static EventQuery readFilter(const PageContext& context) {
        const Record record = readRecord(context.requester, ITEM_OWN_EVENT_FILTER);
        RecordReader reader(record);
        EventQuery query;
        query.severity = reader.next();
        query.source = reader.next();
        query.count = reader.next();
        return query;
    }

    /// The filter in words, so that nobody takes the list for all events.
    static std::string describe(const EventQuery& query) {
        const std::string source =
            query.source.empty() ? text(TEXT_SOURCE_ANY) : translate(sources(), query.source);
        return text(TEXT_LOWEST_SEVERITY) + ": " + translate(severities(), query.severity) + " / " +
               text(TEXT_SOURCE) + ": " + source + " / " + text(TEXT_EVENT_COUNT) + ": " +
               query.count;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::EventsMain>();
}
