// Mail that the board sends when something happens.

#include <algorithm>

#include "gui/EmailAddressField.h"
#include "gui/InetAddressField.h"
#include "shared/input/Form.h"
#include "shared/input/HostRules.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"

using namespace ORVLib::Gui;

namespace {

constexpr int LONGEST_TEXT = 64;
constexpr int WIDTH = 40;

/// Users of both languages see an address, so it is half-width characters without blanks.
bool isPlain(const std::string& text) {
    const auto isHalfWidth = [](char character) { return character > ' ' && character <= '~'; };
    return std::all_of(text.begin(), text.end(), isHalfWidth) &&
           !Console::hasCharacterReference(text);
}

/// True for an address with one "@", and something on both sides of it.
bool isMailAddress(const std::string& text) {
    const std::size_t at = text.find('@');
    return isPlain(text) && at != std::string::npos && at > 0 && at < text.size() - 1 &&
           text.find('@', at + 1) == std::string::npos;
}

class MailPage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_MAIL;

    explicit MailPage(const Console::PageContext& context)
        : RecordPage(context, FUNCTION, Console::TEXT_MAIL_PURPOSE, Console::ITEM_MAIL),
          m_enabled(add(Console::TEXT_SENDING, Console::TEXT_WRONG_CHOICE,
                        std::make_unique<Console::ChecksInput>("enabled"))),
          m_server(addText<InetAddressField>(Console::TEXT_MAIL_SERVER,
                                             Console::TEXT_WRONG_MAIL_SERVER, "server")),
          m_port(add(Console::TEXT_PORT, Console::TEXT_WRONG_PORT,
                     std::make_unique<Console::PortInput>("port", true))),
          m_sender(addMailAddress(Console::TEXT_SENDER, "sender")),
          m_firstRecipient(addMailAddress(Console::TEXT_FIRST_RECIPIENT, "recipient1")),
          m_secondRecipient(addMailAddress(Console::TEXT_SECOND_RECIPIENT, "recipient2")) {
        m_enabled.addBox(text(Console::TEXT_ENABLED));
    }

protected:
    void checkInputs() override {
        if (!m_server.isEmpty() && !Console::isHostName(m_server.getText())) {
            mark(m_server);
        }
        for (const Console::TextInput* const input :
             {&m_sender, &m_firstRecipient, &m_secondRecipient}) {
            if (!input->isEmpty() && !isMailAddress(input->getText())) {
                mark(*input);
            }
        }
        if (m_enabled.isEmpty()) {
            return;
        }
        for (const Console::TextInput* const input :
             {&m_server, &m_port, &m_sender, &m_firstRecipient}) {
            if (input->isEmpty()) {
                mark(*input);
            }
        }
    }

private:
    template <typename Field>
    Console::TextInput& addText(Console::Text label, Console::Text hint, const char* name) {
        return add(label, hint,
                   std::make_unique<Console::TextInput>(std::make_unique<Field>(
                       name, "", Console::FORM_NAME, WIDTH, LONGEST_TEXT, nullptr, true)));
    }

    Console::TextInput& addMailAddress(Console::Text label, const char* name) {
        return addText<EmailAddressField>(label, Console::TEXT_WRONG_MAIL_ADDRESS, name);
    }

    Console::ChecksInput& m_enabled;
    Console::TextInput& m_server;
    Console::TextInput& m_port;
    Console::TextInput& m_sender;
    Console::TextInput& m_firstRecipient;
    Console::TextInput& m_secondRecipient;
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<MailPage>>();
}
