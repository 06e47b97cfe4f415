// The log-in page: posts to itself, and leads into the console with a new session.

#include "catalogue/Texts.h"
#include "framework/access/Device.h"
#include "framework/access/Functions.h"
#include "framework/backend/Board.h"
#include "framework/backend/Environment.h"
#include "framework/component/PageChrome.h"
#include "framework/component/SkeletonPart.h"
#include "framework/input/Form.h"
#include "framework/page/PageMain.h"
#include "framework/page/Program.h"
#include "gui/CGIRequester.h"
#include "gui/MetaTag.h"
#include "gui/PasswordField.h"
#include "gui/SubmitButton.h"
#include "gui/TextField.h"
#include "gui/TextString.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int MODULE = 0x900;
constexpr int LONGEST_NAME = 32;

class LoginMain : public PageMain {
public:
    explicit LoginMain(FormInfo& form) : PageMain(form, MODULE) {}

protected:
    int execMain() override {
        m_formInfo->getFormData("user", m_user);
        if (m_formInfo->isPostMethod()) {
            openSession(fieldOf(*m_formInfo, "password"));
        } else {
            askLanguage();
        }
        beginPage(TEXT_LOGIN);
        if (m_sessionId.empty()) {
            if (!m_formInfo->isPostMethod() && !keepsDevice()) {
                putDeviceCookie(*m_page);
            }
            printPage(makeForm());
        } else {
            leadIntoConsole();
        }
        return 0;
    }

private:
    /// The language of the board, as there is no user yet; English when it cannot be asked.
    void askLanguage() {
        CGIRequester requester;
        if (requester.getLanguage(m_language) == 0) {
            m_problem = TEXT_BOARD_UNREACHABLE;
        }
    }

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
        // Not the name: some type their password there. The board notes the names of its users.
        m_trace.putLog(0, "login from " + client + " failed: error " + std::to_string(error));
        askLanguage();
        m_problem = problemFor(error);
    }

    /// A browser without an ID can go on without one, too.
    void keepDevice(const std::string& sent) {
        CGIRequester requester(m_sessionId.c_str());
        m_device = askDevice(requester, sent);
        if (m_device.empty()) {
            m_trace.putLog(0, "no device ID for a browser: error " +
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

    std::unique_ptr<HTMLComponent> makeForm() {
        auto form = std::make_unique<SkeletonPart>("skeleton_login.txt");
        form->putText("console", m_messages->getString(TEXT_CONSOLE));
        form->putText("user_label", m_messages->getString(TEXT_USER_NAME));
        form->putText("password_label", m_messages->getString(TEXT_PASSWORD));
        form->put("user", std::make_unique<TextField>("user", inputValue(m_user), FORM_NAME,
                                                      LONGEST_NAME, LONGEST_NAME));
        form->put("password", std::make_unique<PasswordField>("password", "", FORM_NAME,
                                                              LONGEST_NAME, LONGEST_NAME));
        form->put("submit",
                  std::make_unique<SubmitButton>("login", m_messages->getString(TEXT_LOGIN)));
        if (m_problem != TEXT_CONSOLE) {
            form->put("problem",
                      std::make_unique<TextString>(m_messages->getString(m_problem), false, false,
                                                   TextString::ERROR_COLOUR));
        }
        return form;
    }

    void leadIntoConsole() {
        putLoginCookies(*m_page, m_sessionId, m_device);
        HTMLMapUtil::insertIntoMap(m_page->getMap(), "meta_refresh",
                                   std::make_unique<MetaTag>("Refresh", "0", FRAME_PATH));
        m_page->getGenerator().printHTML();
    }

    std::string m_user;
    std::string m_device;           ///< the ID that the browser is to keep
    Text m_problem = TEXT_CONSOLE;  // none
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::LoginMain>();
}
