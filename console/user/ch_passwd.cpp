// Changes the password of the user who asks.

#include <algorithm>
#include <array>

#include "gui/BackendNumbers.h"
#include "gui/PasswordField.h"
#include "shared/Board.h"
#include "shared/ConsoleMain.h"
#include "shared/Program.h"
#include "shared/SettingsPage.h"

using namespace ORVLib::Gui;

namespace {

constexpr int PASSWORD_CHANGED = 2;
constexpr std::size_t SHORTEST_PASSWORD = 8;
constexpr std::size_t LONGEST_PASSWORD = 32;

/// The content of the board's item: both passwords, each ended by a NUL.
class PasswordChange {
public:
    PasswordChange(const std::string& present, const std::string& wanted) {
        std::copy(present.begin(), present.end(), m_bytes.begin());
        std::copy(wanted.begin(), wanted.end(), m_bytes.begin() + FIELD_SIZE);
    }
    const unsigned char* data() const { return m_bytes.data(); }
    static constexpr unsigned int FIELD_SIZE = 36;
    static constexpr unsigned int SIZE = 2 * FIELD_SIZE;

private:
    std::array<unsigned char, SIZE> m_bytes{};
};

bool isGoodPassword(const std::string& password) {
    return password.size() >= SHORTEST_PASSWORD && password.size() <= LONGEST_PASSWORD &&
           std::all_of(password.begin(), password.end(),
                       [](char character) { return character > ' ' && character <= '~'; });
}

class PasswordPage : public Console::SettingsPage {
public:
    PasswordPage(MessageMgr& messages, const FormInfo& form, CGIRequester& requester)
        : SettingsPage(messages, form, Console::FUNCTION_CHANGE_PASSWORD, "/user/ch_passwd.cgi",
                       PASSWORD_CHANGED),
          m_requester(requester),
          m_present(
              addPassword(Console::TEXT_PRESENT_PASSWORD, Console::TEXT_WRONG_PASSWORD, "present")),
          m_wanted(addPassword(Console::TEXT_NEW_PASSWORD, Console::TEXT_BAD_PASSWORD, "wanted")),
          m_repeated(addPassword(Console::TEXT_REPEATED_PASSWORD, Console::TEXT_PASSWORDS_DIFFER,
                                 "repeated")) {
        setTexts(Console::TEXT_CHANGE_PASSWORD, Console::TEXT_CHANGE_PASSWORD_PURPOSE);
    }

protected:
    // A password never stands in a page, so there is nothing a confirmation could carry on. Typing
    // the new one twice takes its place.
    bool isConfirmed() const override { return false; }

    void readCurrent() override {}

    void checkInputs() override {
        if (m_present.getValue().empty() || m_present.getValue().size() > LONGEST_PASSWORD) {
            mark(m_present);
        }
        if (!isGoodPassword(m_wanted.getValue())) {
            mark(m_wanted);
        }
        if (m_wanted.getValue() != m_repeated.getValue()) {
            mark(m_repeated);
        }
    }

    void apply() override {
        const PasswordChange change(m_present.getValue(), m_wanted.getValue());
        if (m_requester.setInfo(Console::ITEM_OWN_PASSWORD | ITEM_WRITE, PasswordChange::SIZE,
                                change.data()) != 0) {
            return;
        }
        if (m_requester.getErrorDetail() != Console::ERROR_LOGIN_REFUSED) {
            Console::failWith(m_requester);
        }
        mark(m_present);
    }

private:
    PasswordField& addPassword(Console::Text label, Console::Text hint, const char* name) {
        constexpr int LENGTH = static_cast<int>(LONGEST_PASSWORD);
        return add(
            label, hint,
            std::make_unique<PasswordField>(name, "", "form_name", LENGTH, LENGTH, displayMode()));
    }

    CGIRequester& m_requester;
    PasswordField& m_present;
    PasswordField& m_wanted;
    PasswordField& m_repeated;
};

class PasswordMain : public Console::ConsoleMain {
public:
    explicit PasswordMain(FormInfo& form)
        : ConsoleMain(form, Console::FUNCTION_CHANGE_PASSWORD, Console::TEXT_CHANGE_PASSWORD) {}

protected:
    std::unique_ptr<HTMLComponent> makeBody(CGIRequester& requester) override {
        auto page = std::make_unique<PasswordPage>(*m_messages, *m_formInfo, requester);
        page->makePage();
        return page;
    }
};

}  // namespace

int main() {
    return Console::runProgram<PasswordMain>();
}
