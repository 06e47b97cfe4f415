// Switches the power of one partition.

#include "shared/page/ConsoleMain.h"
#include "shared/page/PartitionMain.h"
#include "shared/page/PowerPage.h"
#include "shared/page/Program.h"

namespace Console {

namespace {

class PartitionPowerPage : public PowerPage {
public:
    static constexpr Function FUNCTION = FUNCTION_PARTITION_POWER;

    explicit PartitionPowerPage(const PageContext& context)
        : PowerPage(context, FUNCTION, TEXT_PARTITION_POWER_PURPOSE) {}
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<
        Console::SettingsMain<Console::PartitionPowerPage, Console::PartitionMain>>();
}
