// Where the board sends traps.

#include "gui/TextField.h"
#include "shared/input/Form.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"

using ORVLib::Gui::TextField;

namespace {

constexpr int DESTINATIONS = 3;
constexpr int LONGEST_COMMUNITY = 32;

class TrapsPage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_TRAPS;

    explicit TrapsPage(const Console::PageContext& context)
        : RecordPage(context, FUNCTION, Console::TEXT_TRAPS_PURPOSE, Console::ITEM_TRAPS) {
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
        Console::ChecksInput& enabled;
        Console::AddressInput& address;
        Console::TextInput& community;
    };

    void addDestination(const std::string& number) {
        addHeading(text(Console::TEXT_TRAP_DESTINATION) + ' ' + number);
        auto& enabled = add(Console::TEXT_SENDING, Console::TEXT_WRONG_CHOICE,
                            std::make_unique<Console::ChecksInput>("enabled" + number + '_'));
        enabled.addBox(text(Console::TEXT_ENABLED));
        auto& address =
            add(Console::TEXT_ADDRESS, Console::TEXT_WRONG_ADDRESS,
                std::make_unique<Console::AddressInput>("address" + number + '_', true));
        auto& community =
            add(Console::TEXT_COMMUNITY, Console::TEXT_WRONG_COMMUNITY,
                std::make_unique<Console::TextInput>(makeCommunityField("community" + number)));
        m_destinations.push_back({enabled, address, community});
    }

    static std::unique_ptr<TextField> makeCommunityField(const std::string& name) {
        auto field = std::make_unique<TextField>(name, "", Console::FORM_NAME, LONGEST_COMMUNITY,
                                                 LONGEST_COMMUNITY);
        field->setCheckCharacters(true);
        field->setAllowEmpty(true);
        return field;
    }

    std::vector<Destination> m_destinations;
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<TrapsPage>>();
}
