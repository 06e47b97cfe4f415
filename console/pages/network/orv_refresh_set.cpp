// The interval at which pages reload themselves for this user.

#include "framework/backend/Board.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/SettingsPage.h"

namespace Console {

namespace {

class RefreshPage : public SettingsPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_REFRESH);

    explicit RefreshPage(const PageContext& context)
        : SettingsPage(context, FUNCTION, TEXT_REFRESH_PURPOSE),
          m_interval(add(TEXT_INTERVAL, TEXT_WRONG_INTERVAL,
                         std::make_unique<NumberInput>("interval", 0, 3600))) {}

protected:
    void readCurrent() override {
        m_interval.setText(std::to_string(readNumber(getRequester(), ITEM_OWN_REFRESH_INTERVAL)));
    }

    void apply() override {
        writeNumber(getRequester(), ITEM_OWN_REFRESH_INTERVAL,
                    static_cast<std::uint32_t>(std::stoul(m_interval.getText())));
    }

private:
    NumberInput& m_interval;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::RefreshPage>>();
}
