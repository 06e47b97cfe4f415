// What happened on the server: the events that the user's own filter lets through.

#include "gui/ORVGUIUtil.h"
#include "shared/backend/Board.h"
#include "shared/component/SkeletonPart.h"
#include "shared/component/Words.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "system/EventList.h"

using namespace ORVLib::Gui;

namespace {

class EventsMain : public Console::ConsoleMain {
public:
    explicit EventsMain(FormInfo& form) : ConsoleMain(form, Console::FUNCTION_EVENTS) {}

protected:
    std::unique_ptr<HTMLComponent> makeBody(const Console::PageContext& context) override {
        Console::EventQuery query = readFilter(context);
        query.before = Console::readBefore(context.form);
        auto events = Console::makeEventList(context, query,
                                             ORVGUIUtil::getCGIPath(Console::FUNCTION_EVENTS), {});
        events->putSentence("note", describe(query));
        auto body = std::make_unique<Console::SkeletonPart>("skeleton_list.txt");
        body->putText("title", text(Console::TEXT_EVENTS));
        body->putSentence("purpose", text(Console::TEXT_EVENTS_PURPOSE));
        body->put("content", std::move(events));
        return body;
    }

private:
    static Console::EventQuery readFilter(const Console::PageContext& context) {
        const Console::Record record =
            Console::readRecord(context.requester, Console::ITEM_OWN_EVENT_FILTER);
        Console::RecordReader reader(record);
        Console::EventQuery query;
        query.severity = reader.next();
        query.source = reader.next();
        query.count = reader.next();
        return query;
    }

    /// The filter in words, so that nobody takes the list for all there is.
    std::string describe(const Console::EventQuery& query) {
        const std::string source = query.source.empty()
                                       ? text(Console::TEXT_SOURCE_ANY)
                                       : say(*m_messages, Console::sources(), query.source);
        return text(Console::TEXT_LOWEST_SEVERITY) + ": " +
               say(*m_messages, Console::severities(), query.severity) + " / " +
               text(Console::TEXT_SOURCE) + ": " + source + " / " +
               text(Console::TEXT_EVENT_COUNT) + ": " + query.count;
    }

    std::string text(Console::Text number) { return m_messages->getString(number); }
};

}  // namespace

int main() {
    return Console::runProgram<EventsMain>();
}
