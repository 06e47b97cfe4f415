// Switches the power of all partitions.

#include "shared/page/ConsoleMain.h"
#include "shared/page/PowerPage.h"
#include "shared/page/Program.h"

namespace {

class SystemPowerPage : public Console::PowerPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_SYSTEM_POWER;

    explicit SystemPowerPage(const Console::PageContext& context)
        : PowerPage(context, FUNCTION, Console::TEXT_SYSTEM_POWER_PURPOSE) {}
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<SystemPowerPage>>();
}
