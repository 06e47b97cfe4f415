// What a partition starts from.

#include <string>

#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"

namespace Console {

namespace {

constexpr char NO_DEVICE[] = "none";

class BootPage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_BOOT);

    explicit BootPage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_BOOT_PURPOSE,
                     ITEM_PARTITION_BOOT + static_cast<unsigned int>(context.partition)),
          m_first(addDevice(TEXT_FIRST_DEVICE, "device1")),
          m_second(addDevice(TEXT_SECOND_DEVICE, "device2")),
          m_third(addDevice(TEXT_THIRD_DEVICE, "device3")) {
        m_second.addOption(NO_DEVICE, text(TEXT_NO_DEVICE));
        m_third.addOption(NO_DEVICE, text(TEXT_NO_DEVICE));
        add(TEXT_RETRIES, TEXT_WRONG_RETRIES, std::make_unique<NumberInput>("retries", 0, 9));
        add(TEXT_HALT_ON_ERROR, TEXT_WRONG_CHOICE,
            std::make_unique<FlagInput>("halt", text(TEXT_ENABLED), text(TEXT_DISABLED)));
    }

protected:
    void checkInputs() override {
        if (isSame(m_second, m_first)) {
            mark(m_second, TEXT_DEVICE_TWICE);
        }
        if (isSame(m_third, m_first) || isSame(m_third, m_second)) {
            mark(m_third, TEXT_DEVICE_TWICE);
        }
    }

private:
    MenuInput& addDevice(Text label, const char* name) {
        auto& device = add(label, TEXT_WRONG_CHOICE, std::make_unique<MenuInput>(name));
        device.addOption("disk", text(TEXT_DISK));
        device.addOption("dvd", text(TEXT_DVD));
        device.addOption("network", text(TEXT_NETWORK));
        return device;
    }

    static bool isSame(const MenuInput& device, const MenuInput& other) {
        return !device.isError() && device.getText() != NO_DEVICE &&
               device.getText() == other.getText();
    }

    MenuInput& m_first;
    MenuInput& m_second;
    MenuInput& m_third;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::BootPage>>();
}
