// Changes the user's own password.

#include <string>

#include "framework/backend/Board.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/SettingsPage.h"
#include "pages/user/PasswordRule.h"

namespace Console {

namespace {

constexpr int PASSWORD_CHANGED = 2;

/// The content of the board's item: both passwords, padded with NULs.
std::string changeOf(const std::string& present, const std::string& wanted) {
    std::string content = present;
    content.resize(PasswordChange::NEW_OFFSET);
    content += wanted;
    content.resize(PasswordChange::SIZE);
    return content;
}

class PasswordPage : public SettingsPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_CHANGE_PASSWORD);

    explicit PasswordPage(const PageContext& context)
        : SettingsPage(context, FUNCTION, TEXT_CHANGE_PASSWORD_PURPOSE),
          m_present(addPassword(TEXT_PRESENT_PASSWORD, TEXT_ENTER_PRESENT, "present",
                                PasswordInput::Use::CHECK)),
          m_wanted(addPassword(TEXT_NEW_PASSWORD, TEXT_BAD_PASSWORD, "wanted",
                               PasswordInput::Use::SETTING)),
          m_repeated(addPassword(TEXT_REPEATED_PASSWORD, TEXT_REPEAT_PASSWORD, "repeated",
                                 PasswordInput::Use::CHECK)) {
        setCompletion(PASSWORD_CHANGED);
    }

protected:
    // A password is never printed in a page, so a confirmation could not carry it. The user types
    // the new one twice instead.
    bool isConfirmed() const override { return false; }

    void readCurrent() override {}

    void checkInputs() override {
        if (m_present.isEmpty()) {
            mark(m_present);
        }
        if (!isGoodPassword(m_wanted.getText())) {
            mark(m_wanted);
        }
        if (m_wanted.getText() != m_repeated.getText()) {
            mark(m_repeated);
        }
    }

    void apply() override {
        const std::string change = changeOf(m_present.getText(), m_wanted.getText());
        switch (writeBytes(getRequester(), ITEM_OWN_PASSWORD, change,
                           {ERROR_LOGIN_REFUSED, ERROR_BUSY})) {
            case ERROR_LOGIN_REFUSED:
                mark(m_present, TEXT_WRONG_PASSWORD);
                break;
            case ERROR_BUSY:
                refuse(TEXT_BOARD_BUSY);
                break;
            default:
                break;
        }
    }

private:
    PasswordInput& addPassword(Text label, Text hint, const char* name, PasswordInput::Use use) {
        return add(label, hint, std::make_unique<PasswordInput>(name, LONGEST_PASSWORD, use));
    }

    PasswordInput& m_present;
    PasswordInput& m_wanted;
    PasswordInput& m_repeated;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::PasswordPage>>();
}
