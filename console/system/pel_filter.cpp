// Which events the event list shows, for the user who asks.

#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"
#include "system/EventList.h"

namespace {

class EventFilterPage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_EVENT_FILTER;

    explicit EventFilterPage(const Console::PageContext& context)
        : RecordPage(context, FUNCTION, Console::TEXT_EVENT_FILTER_PURPOSE,
                     Console::ITEM_OWN_EVENT_FILTER) {
        add(Console::TEXT_LOWEST_SEVERITY, Console::TEXT_WRONG_CHOICE,
            Console::makeSeverityInput(context));
        add(Console::TEXT_SOURCE, Console::TEXT_WRONG_CHOICE, Console::makeSourceInput(context));
        add(Console::TEXT_EVENT_COUNT, Console::TEXT_WRONG_EVENT_COUNT, Console::makeCountInput());
    }
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<EventFilterPage>>();
}
