// Switches the power of all partitions.

#include "shared/ConsoleMain.h"
#include "shared/PowerPage.h"
#include "shared/Program.h"

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
