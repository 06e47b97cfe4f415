// The destinations of the board's traps.

#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"

namespace Console {

namespace {

constexpr int DESTINATIONS = 3;
constexpr int LONGEST_COMMUNITY = 32;

class TrapsPage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_TRAPS);

    explicit TrapsPage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_TRAPS_PURPOSE, ITEM_TRAPS) {
        for (int number = 1; number <= DESTINATIONS; ++number) {
            addDestination(std::to_string(number));
        }
    }

protected:
    void checkInputs() override {
        for (const Destination& destination : m_destinations) {
            if (destination.enabled.isEmpty()) {
                continue;
            }
            if (destination.address.isEmpty()) {
                mark(destination.address);
            }
            if (destination.community.isEmpty()) {
                mark(destination.community);
            }
        }
    }

private:
    struct Destination {
        ChecksInput& enabled;
        AddressInput& address;
        TextInput& community;
    };

    void addDestination(const std::string& number) {
        addHeading(text(TEXT_TRAP_DESTINATION) + ' ' + number);
        auto& enabled = add(TEXT_SENDING, TEXT_WRONG_CHOICE,
                            std::make_unique<FlagInput>("enabled" + number + '_',
                                                        text(TEXT_ENABLED), text(TEXT_DISABLED)));
        auto& address = add(TEXT_ADDRESS, TEXT_WRONG_ADDRESS,
                            std::make_unique<AddressInput>("address" + number + '_', true));
        auto& community =
            add(TEXT_COMMUNITY, TEXT_WRONG_COMMUNITY,
                std::make_unique<AsciiInput>("community" + number, LONGEST_COMMUNITY, true, false));
        m_destinations.push_back({enabled, address, community});
    }

    std::vector<Destination> m_destinations;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::TrapsPage>>();
}
