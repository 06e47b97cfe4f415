// Switches the power of one partition.

#include "framework/page/ConsoleMain.h"
#include "framework/page/PartitionMain.h"
#include "framework/page/PowerPage.h"
#include "framework/page/Program.h"

namespace Console {

namespace {

class PartitionPowerPage : public PowerPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_PARTITION_POWER);

    explicit PartitionPowerPage(const PageContext& context)
        : PowerPage(context, FUNCTION, TEXT_PARTITION_POWER_PURPOSE) {}
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<
        Console::SettingsMain<Console::PartitionPowerPage, Console::PartitionMain>>();
}
