// The LED that shows which server in a room is meant.

#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"

namespace {

class LedPage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_LED;

    explicit LedPage(const Console::PageContext& context)
        : RecordPage(context, FUNCTION, Console::TEXT_LED_PURPOSE, Console::ITEM_LED) {
        auto& led = add(Console::TEXT_LED_LIGHT, Console::TEXT_WRONG_CHOICE,
                        std::make_unique<Console::RadioInput>("led"));
        led.addOption("off", text(Console::TEXT_OFF));
        led.addOption("on", text(Console::TEXT_ON));
        led.addOption("blink", text(Console::TEXT_BLINKING));
    }
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<LedPage>>();
}
