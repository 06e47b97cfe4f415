// Switches the power of all partitions.

#include "shared/page/ConsoleMain.h"
#include "shared/page/PowerPage.h"
#include "shared/page/Program.h"

namespace Console {

namespace {

class SystemPowerPage : public PowerPage {
public:
    static constexpr Function FUNCTION = FUNCTION_SYSTEM_POWER;

    explicit SystemPowerPage(const PageContext& context)
        : PowerPage(context, FUNCTION, TEXT_SYSTEM_POWER_PURPOSE) {}
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::SystemPowerPage>>();
}
