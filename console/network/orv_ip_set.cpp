// How the board is reached in the network.

#include "gui/TextField.h"
#include "shared/input/Form.h"
#include "shared/input/HostRules.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"

using ORVLib::Gui::TextField;

namespace {

constexpr int LONGEST_NAME = 64;

class AddressesPage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_ADDRESSES;

    explicit AddressesPage(const Console::PageContext& context)
        : RecordPage(context, FUNCTION, Console::TEXT_ADDRESSES_PURPOSE, Console::ITEM_ADDRESSES),
          m_host(add(Console::TEXT_HOST_NAME, Console::TEXT_WRONG_HOST_NAME,
                     std::make_unique<Console::TextInput>(std::make_unique<TextField>(
                         "host", "", Console::FORM_NAME, 40, LONGEST_NAME)))),
          m_address(add(Console::TEXT_MASKED_ADDRESS, Console::TEXT_WRONG_MASKED_ADDRESS,
                        std::make_unique<Console::MaskedAddressInput>("address"))) {
        addServer(Console::TEXT_GATEWAY, "gateway");
        addServer(Console::TEXT_FIRST_NAME_SERVER, "first_dns");
        addServer(Console::TEXT_SECOND_NAME_SERVER, "second_dns");
    }

protected:
    void checkInputs() override {
        if (!Console::isHostName(m_host.getText())) {
            mark(m_host);
        }
        if (!m_address.isError() && !Console::isHostAddress(m_address.getText())) {
            mark(m_address, Console::TEXT_WRONG_ADDRESS);
        }
    }

private:
    void addServer(Console::Text label, const char* name) {
        add(label, Console::TEXT_WRONG_ADDRESS,
            std::make_unique<Console::AddressInput>(name, true));
    }

    Console::TextInput& m_host;
    Console::MaskedAddressInput& m_address;
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<AddressesPage>>();
}
