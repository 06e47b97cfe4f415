// The board's name and addresses in the network.

#include "framework/input/HostRules.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"

namespace Console {

namespace {

constexpr int NAME_WIDTH = 40;
constexpr int LONGEST_NAME = 64;

class AddressesPage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_ADDRESSES);

    explicit AddressesPage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_ADDRESSES_PURPOSE, ITEM_ADDRESSES),
          m_host(add(TEXT_HOST_NAME, TEXT_WRONG_HOST_NAME,
                     std::make_unique<TextInput>("host", NAME_WIDTH, LONGEST_NAME))),
          m_address(add(TEXT_MASKED_ADDRESS, TEXT_WRONG_MASKED_ADDRESS,
                        std::make_unique<MaskedAddressInput>("address"))) {
        addServer(TEXT_GATEWAY, "gateway");
        addServer(TEXT_FIRST_NAME_SERVER, "first_dns");
        addServer(TEXT_SECOND_NAME_SERVER, "second_dns");
    }

protected:
    void checkInputs() override {
        if (!isHostName(m_host.getText())) {
            mark(m_host);
        }
        if (!m_address.isError() && !isHostAddress(m_address.getText())) {
            mark(m_address, TEXT_WRONG_ADDRESS);
        }
    }

private:
    void addServer(Text label, const char* name) {
        add(label, TEXT_WRONG_ADDRESS, std::make_unique<AddressInput>(name, true));
    }

    TextInput& m_host;
    MaskedAddressInput& m_address;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::AddressesPage>>();
}
