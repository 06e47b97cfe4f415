// What a partition starts from.

#include <string>

#include "shared/page/ConsoleMain.h"
#include "shared/page/PartitionMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"

namespace {

constexpr char NO_DEVICE[] = "none";

class BootPage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_BOOT;

    explicit BootPage(const Console::PageContext& context)
        : RecordPage(context, FUNCTION, Console::TEXT_BOOT_PURPOSE,
                     Console::ITEM_PARTITION_BOOT + static_cast<unsigned int>(context.partition)),
          m_first(addDevice(Console::TEXT_FIRST_DEVICE, "device1")),
          m_second(addDevice(Console::TEXT_SECOND_DEVICE, "device2")),
          m_third(addDevice(Console::TEXT_THIRD_DEVICE, "device3")) {
        m_second.addOption(NO_DEVICE, text(Console::TEXT_NO_DEVICE));
        m_third.addOption(NO_DEVICE, text(Console::TEXT_NO_DEVICE));
        add(Console::TEXT_RETRIES, Console::TEXT_WRONG_RETRIES,
            std::make_unique<Console::NumberInput>("retries", 0, 9));
        add(Console::TEXT_HALT_ON_ERROR, Console::TEXT_WRONG_CHOICE,
            std::make_unique<Console::FlagInput>("halt", text(Console::TEXT_ENABLED),
                                                 text(Console::TEXT_DISABLED)));
    }

protected:
    void checkInputs() override {
        if (isSame(m_second, m_first)) {
            mark(m_second, Console::TEXT_DEVICE_TWICE);
        }
        if (isSame(m_third, m_first) || isSame(m_third, m_second)) {
            mark(m_third, Console::TEXT_DEVICE_TWICE);
        }
    }

private:
    Console::MenuInput& addDevice(Console::Text label, const char* name) {
        auto& device =
            add(label, Console::TEXT_WRONG_CHOICE, std::make_unique<Console::MenuInput>(name));
        device.addOption("disk", text(Console::TEXT_DISK));
        device.addOption("dvd", text(Console::TEXT_DVD));
        device.addOption("network", text(Console::TEXT_NETWORK));
        return device;
    }

    static bool isSame(const Console::MenuInput& device, const Console::MenuInput& other) {
        return !device.isError() && device.getText() != NO_DEVICE &&
               device.getText() == other.getText();
    }

    Console::MenuInput& m_first;
    Console::MenuInput& m_second;
    Console::MenuInput& m_third;
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<BootPage, Console::PartitionMain>>();
}
