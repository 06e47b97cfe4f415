// How often status pages reload themselves, for the user who asks.

#include "shared/backend/Board.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/SettingsPage.h"

namespace {

class RefreshPage : public Console::SettingsPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_REFRESH;

    explicit RefreshPage(const Console::PageContext& context)
        : SettingsPage(context, FUNCTION, Console::TEXT_REFRESH_PURPOSE),
          m_interval(add(Console::TEXT_INTERVAL, Console::TEXT_WRONG_INTERVAL,
                         std::make_unique<Console::NumberInput>("interval", 0, 3600))) {}

protected:
    void readCurrent() override {
        m_interval.setText(std::to_string(
            Console::readNumber(getRequester(), Console::ITEM_OWN_REFRESH_INTERVAL)));
    }

    void apply() override {
        Console::writeNumber(getRequester(), Console::ITEM_OWN_REFRESH_INTERVAL,
                             static_cast<std::uint32_t>(std::stoul(m_interval.getText())));
    }

private:
    Console::NumberInput& m_interval;
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<RefreshPage>>();
}
