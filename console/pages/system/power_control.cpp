// Switches the power of all partitions.

#include "framework/page/ConsoleMain.h"
#include "framework/page/PowerPage.h"
#include "framework/page/Program.h"

namespace Console {

namespace {

class SystemPowerPage : public PowerPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_SYSTEM_POWER);

    explicit SystemPowerPage(const PageContext& context)
        : PowerPage(context, FUNCTION, TEXT_SYSTEM_POWER_PURPOSE) {}
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::SystemPowerPage>>();
}
