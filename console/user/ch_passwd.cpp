// Changes the password of the user who asks.

#include <string>

#include "shared/backend/Board.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/SettingsPage.h"
#include "user/PasswordRule.h"

namespace {

constexpr int PASSWORD_CHANGED = 2;

/// The content of the board's item: both passwords, each filled up with NULs.
std::string changeOf(const std::string& present, const std::string& wanted) {
    constexpr std::size_t FIELD_SIZE = 36;
    std::string content = present;
    content.resize(FIELD_SIZE);
    content += wanted;
    content.resize(2 * FIELD_SIZE);
    return content;
}

class PasswordPage : public Console::SettingsPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_CHANGE_PASSWORD;

    explicit PasswordPage(const Console::PageContext& context)
        : SettingsPage(context, FUNCTION, Console::TEXT_CHANGE_PASSWORD_PURPOSE),
          m_present(
              addPassword(Console::TEXT_PRESENT_PASSWORD, Console::TEXT_WRONG_PASSWORD, "present")),
          m_wanted(addPassword(Console::TEXT_NEW_PASSWORD, Console::TEXT_BAD_PASSWORD, "wanted")),
          m_repeated(addPassword(Console::TEXT_REPEATED_PASSWORD, Console::TEXT_PASSWORDS_DIFFER,
                                 "repeated")) {
        setCompletion(PASSWORD_CHANGED);
    }

protected:
    // A password never stands in a page, so there is nothing a confirmation could carry on. Typing
    // the new one twice takes its place.
    bool isConfirmed() const override { return false; }

    void readCurrent() override {}

    void checkInputs() override {
        if (m_present.isEmpty()) {
            mark(m_present);
        }
        if (!Console::isGoodPassword(m_wanted.getText())) {
            mark(m_wanted);
        }
        if (m_wanted.getText() != m_repeated.getText()) {
            mark(m_repeated);
        }
    }

    void apply() override {
        const std::string change = changeOf(m_present.getText(), m_wanted.getText());
        switch (Console::writeBytes(getRequester(), Console::ITEM_OWN_PASSWORD, change,
                                    {Console::ERROR_LOGIN_REFUSED, Console::ERROR_BUSY})) {
            case Console::ERROR_LOGIN_REFUSED:
                mark(m_present);
                break;
            case Console::ERROR_BUSY:
                refuse(Console::TEXT_BOARD_BUSY);
                break;
            default:
                break;
        }
    }

private:
    Console::PasswordInput& addPassword(Console::Text label, Console::Text hint, const char* name) {
        return add(label, hint,
                   std::make_unique<Console::PasswordInput>(name, Console::LONGEST_PASSWORD));
    }

    Console::PasswordInput& m_present;
    Console::PasswordInput& m_wanted;
    Console::PasswordInput& m_repeated;
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<PasswordPage>>();
}
