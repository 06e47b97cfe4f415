// Switches the power of one partition.

#include "shared/page/ConsoleMain.h"
#include "shared/page/PartitionMain.h"
#include "shared/page/PowerPage.h"
#include "shared/page/Program.h"

namespace {

class PartitionPowerPage : public Console::PowerPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_PARTITION_POWER;

    explicit PartitionPowerPage(const Console::PageContext& context)
        : PowerPage(context, FUNCTION, Console::TEXT_PARTITION_POWER_PURPOSE) {}
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<PartitionPowerPage, Console::PartitionMain>>();
}
