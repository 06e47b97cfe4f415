// The events that the event list shows to this user.

#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"
#include "pages/system/EventList.h"

namespace Console {

namespace {

class EventFilterPage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_EVENT_FILTER);

    explicit EventFilterPage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_EVENT_FILTER_PURPOSE, ITEM_OWN_EVENT_FILTER) {
        add(TEXT_LOWEST_SEVERITY, TEXT_WRONG_CHOICE, makeSeverityInput());
        add(TEXT_SOURCE, TEXT_WRONG_CHOICE, makeSourceInput());
        add(TEXT_EVENT_COUNT, TEXT_WRONG_EVENT_COUNT, makeCountInput());
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::EventFilterPage>>();
}
