// The log-in page: posts to itself, and opens the console with a new session.

#include "framework/access/Device.h"
#include "framework/access/Functions.h"
#include "framework/backend/Board.h"
#include "framework/backend/Environment.h"
#include "framework/backend/WaitLimit.h"
#include "framework/component/Help.h"
#include "framework/component/PageChrome.h"
#include "framework/component/SkeletonPart.h"
#include "framework/input/Form.h"
#include "framework/page/PageMain.h"
#include "framework/page/Program.h"
#include "framework/page/Redirect.h"
#include "gui/CGIRequester.h"
#include "gui/PasswordField.h"
#include "gui/SubmitButton.h"
#include "gui/TextField.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int LONGEST_NAME = 32;

class LoginMain : public PageMain {
public:
    explicit LoginMain(FormInfo& form) : PageMain(form, Module::LOGIN) {}

protected:
    int execMain() override {
        m_user = getField("user");
        // A log-in may have to wait at the board. One that does not answer at all is found out
        // here.
        if (!askLanguage()) {
            m_problem = TEXT_BOARD_UNREACHABLE;
        } else if (m_formInfo->isPostMethod()) {
            openSession(getField("password"));
        }
        beginPage(TEXT_LOGIN);
        if (m_sessionId.empty()) {
            if (!m_formInfo->isPostMethod() && !keepsDevice()) {
                putDeviceCookie(*m_page);
            }
            printPage(makeForm());
        } else {
            openConsole();
        }
        return 0;
    }

private:
    void openSession(const std::string& password) {
        const std::string client = variable("REMOTE_ADDR");
        const std::string sent = readDevice();
        CGIRequester requester;
        if (requester.login(m_user, password, sent.empty() ? client : client + ' ' + sent,
                            m_language, m_sessionId) != 0) {
            if (keepsDevice()) {
                keepDevice(sent);
            }
            return;
        }
        const unsigned int error = requester.getErrorDetail();
        // Without the name, because some users type their password there. The board logs the names
        // of its users.
        logError(Module::LOGIN, "login from " + client + " failed: error " + std::to_string(error));
        m_problem = problemFor(error);
    }

    /// Gets the ID of the browser. The log-in continues without one.
    void keepDevice(const std::string& sent) {
        constexpr int SHORT_MS = 2000;
        const WaitLimit limit(SHORT_MS);
        CGIRequester requester(m_sessionId.c_str());
        m_device = askDevice(requester, sent);
        if (m_device.empty()) {
            logError(Module::LOGIN, "no device ID for a browser: error " +
                                        std::to_string(requester.getErrorDetail()));
        }
    }

    static Text problemFor(unsigned int error) {
        switch (error) {
            case ERROR_LOGIN_REFUSED:
                return TEXT_WRONG_LOGIN;
            case ERROR_BUSY:
                return TEXT_BOARD_BUSY;
            default:
                return TEXT_BOARD_UNREACHABLE;
        }
    }

    Component makeForm() {
        auto form = std::make_unique<SkeletonPart>("skeleton_login.txt");
        form->putSentence("console", text(TEXT_CONSOLE));
        form->putText("user_label", text(TEXT_USER_NAME));
        form->putText("password_label", text(TEXT_PASSWORD));
        form->put("user", std::make_unique<TextField>("user", inputValue(m_user), FORM_NAME,
                                                      LONGEST_NAME, LONGEST_NAME));
        form->put("password", std::make_unique<PasswordField>("password", "", FORM_NAME,
                                                              LONGEST_NAME, LONGEST_NAME));
        form->put("submit", std::make_unique<SubmitButton>("login", text(TEXT_LOGIN)));
        form->putText("waiting", text(TEXT_LOGGING_IN));
        form->put("help", std::make_unique<Help>(TEXT_HELP_LOGIN));
        if (m_formInfo->isPostMethod()) {
            form->putText("address", LOGIN_PATH);
        }
        if (m_problem != TEXT_CONSOLE) {
            form->put("problem", makeSentence(text(m_problem), TextString::ERROR_COLOUR));
        }
        return form;
    }

    void openConsole() {
        putLoginCookies(*m_page, m_sessionId, m_device);
        printRedirect(*m_page, FRAME_PATH);
    }

    std::string m_user;
    std::string m_device;           ///< the ID for the browser; empty without one
    Text m_problem = TEXT_CONSOLE;  // none
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::LoginMain>();
}
