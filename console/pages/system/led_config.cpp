// The LED that identifies the server in its rack.

#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"

namespace Console {

namespace {

class LedPage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_LED);

    explicit LedPage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_LED_PURPOSE, ITEM_LED) {
        auto& led = add(TEXT_LED_LIGHT, TEXT_WRONG_CHOICE, std::make_unique<RadioInput>("led"));
        led.addOption("off", text(TEXT_OFF));
        led.addOption("on", text(TEXT_ON));
        led.addOption("blink", text(TEXT_BLINKING));
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::LedPage>>();
}
