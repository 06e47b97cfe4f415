// The board's name and addresses in the network.

#include "framework/backend/Board.h"
#include "framework/input/HostRules.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"
#include "pages/network/LostWay.h"

namespace Console {

namespace {

constexpr int NAME_WIDTH = 40;
constexpr int LONGEST_NAME = 64;

/// A shorter time is not enough to open the console at its new address.
constexpr std::uint32_t SHORTEST_PROBATION_S = 30;

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
        addHeading(text(TEXT_PROBATION_TIME));
        m_probation = &add(TEXT_PROBATION_SECONDS, TEXT_WRONG_PROBATION_SECONDS,
                           std::make_unique<NumberInput>("probation_time", 0, MAX_PROBATION_S));
    }

protected:
    std::vector<Input*> getRecordInputs() const override {
        std::vector<Input*> inputs = getInputs();
        inputs.pop_back();  // the time is an item of its own
        return inputs;
    }

    void readCurrent() override {
        RecordPage::readCurrent();
        m_probation->setText(std::to_string(readNumber(getRequester(), ITEM_PROBATION_TIME)));
    }

    /// The time counts for the change of the addresses, too.
    void apply() override {
        writeNumber(getRequester(), ITEM_PROBATION_TIME, getSeconds());
        RecordPage::apply();
    }

    void checkInputs() override {
        if (!isHostName(m_host.getText())) {
            mark(m_host);
        }
        if (!m_address.isError() && !isHostAddress(m_address.getText())) {
            mark(m_address, TEXT_WRONG_ADDRESS);
        }
        if (!m_probation->isError() && getSeconds() != 0 && getSeconds() < SHORTEST_PROBATION_S) {
            mark(*m_probation);
        }
    }

    std::string getLockOut() override {
        const Record present = readRecord(getRequester(), ITEM_ADDRESSES);
        RecordReader reader(present);
        reader.next();  // the host name
        const std::string wanted = m_address.getText();
        return describeLostAddress(reader.next(), wanted.substr(0, wanted.find('/')));
    }

private:
    std::uint32_t getSeconds() const {
        return static_cast<std::uint32_t>(std::stoul(m_probation->getText()));
    }

    void addServer(Text label, const char* name) {
        add(label, TEXT_WRONG_ADDRESS, std::make_unique<AddressInput>(name, true));
    }

    TextInput& m_host;
    MaskedAddressInput& m_address;
    NumberInput* m_probation = nullptr;  ///< the last input
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::NetworkMain<Console::AddressesPage>>();
}
