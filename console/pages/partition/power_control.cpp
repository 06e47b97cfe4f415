// Switches the power of one partition.

#include "framework/page/ConsoleMain.h"
#include "framework/page/PowerPage.h"
#include "framework/page/Program.h"

int main() {
    using namespace Console;
    return runProgram<SettingsMain<PowerPage, functionOf(TEXT_PARTITION_POWER)>>();
}
