// How often status pages reload themselves, for the user who asks.

#include "gui/TextField.h"
#include "shared/Board.h"
#include "shared/ConsoleMain.h"
#include "shared/Program.h"
#include "shared/SettingsPage.h"

using namespace ORVLib::Gui;

namespace {

constexpr int SETTINGS_CHANGED = 1;
constexpr std::uint32_t LONGEST_INTERVAL = 3600;
constexpr int DIGITS = 4;

class RefreshPage : public Console::SettingsPage {
public:
    RefreshPage(MessageMgr& messages, const FormInfo& form, CGIRequester& requester)
        : SettingsPage(messages, form, Console::FUNCTION_REFRESH, "/network/orv_refresh_set.cgi",
                       SETTINGS_CHANGED),
          m_requester(requester),
          m_interval(add(Console::TEXT_INTERVAL, Console::TEXT_WRONG_INTERVAL,
                         std::make_unique<TextField>("interval", "", "form_name", DIGITS, DIGITS,
                                                     displayMode(), false, true))) {
        setTexts(Console::TEXT_REFRESH, Console::TEXT_REFRESH_PURPOSE);
    }

protected:
    void readCurrent() override {
        const std::uint32_t seconds =
            Console::readNumber(m_requester, Console::ITEM_OWN_REFRESH_INTERVAL);
        m_interval.setValue(std::to_string(seconds));
    }

    void checkInputs() override {
        const std::string& digits = m_interval.getValue();
        if (digits.find_first_not_of("0123456789") != std::string::npos ||
            (!m_interval.isError() && seconds() > LONGEST_INTERVAL)) {
            mark(m_interval);
        }
    }

    void apply() override {
        Console::writeNumber(m_requester, Console::ITEM_OWN_REFRESH_INTERVAL, seconds());
    }

private:
    /// REQUIRES: the input is DIGITS digits at most.
    std::uint32_t seconds() const {
        return static_cast<std::uint32_t>(std::stoul(m_interval.getValue()));
    }

    CGIRequester& m_requester;
    TextField& m_interval;
};

class RefreshMain : public Console::ConsoleMain {
public:
    explicit RefreshMain(FormInfo& form)
        : ConsoleMain(form, Console::FUNCTION_REFRESH, Console::TEXT_REFRESH) {}

protected:
    std::unique_ptr<HTMLComponent> makeBody(CGIRequester& requester) override {
        auto page = std::make_unique<RefreshPage>(*m_messages, *m_formInfo, requester);
        page->makePage();
        return page;
    }
};

}  // namespace

int main() {
    return Console::runProgram<RefreshMain>();
}
