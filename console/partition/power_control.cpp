// Switches the power of one partition.

#include "shared/ConsoleMain.h"
#include "shared/PartitionMain.h"
#include "shared/PowerPage.h"
#include "shared/Program.h"

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
