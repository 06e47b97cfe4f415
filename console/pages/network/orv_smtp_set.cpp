// Mail that the board sends about events.

#include <algorithm>

#include "framework/input/HostRules.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"
#include "gui/EmailAddressField.h"
#include "gui/InetAddressField.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int LONGEST_TEXT = 64;
constexpr int WIDTH = 40;

/// True for half-width characters without blanks, which users of both languages can read.
bool isPlain(const std::string& text) {
    const auto isHalfWidth = [](char character) { return character > ' ' && character <= '~'; };
    return std::all_of(text.begin(), text.end(), isHalfWidth) && !hasCharacterReference(text);
}

/// True for an address with one "@" and text on both sides of it.
bool isMailAddress(const std::string& text) {
    const std::size_t at = text.find('@');
    return isPlain(text) && at != std::string::npos && at > 0 && at < text.size() - 1 &&
           text.find('@', at + 1) == std::string::npos;
}

class MailPage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_MAIL);

    explicit MailPage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_MAIL_PURPOSE, ITEM_MAIL),
          m_enabled(
              add(TEXT_SENDING, TEXT_WRONG_CHOICE,
                  std::make_unique<FlagInput>("enabled", text(TEXT_ENABLED), text(TEXT_DISABLED)))),
          m_server(addText<InetAddressField>(TEXT_MAIL_SERVER, TEXT_WRONG_MAIL_SERVER, "server")),
          m_port(add(TEXT_PORT, TEXT_WRONG_PORT, std::make_unique<PortInput>("port", true))),
          m_sender(addMailAddress(TEXT_SENDER, "sender")),
          m_firstRecipient(addMailAddress(TEXT_FIRST_RECIPIENT, "recipient1")),
          m_secondRecipient(addMailAddress(TEXT_SECOND_RECIPIENT, "recipient2")) {}

protected:
    void checkInputs() override {
        if (!m_server.isEmpty() && !isHostName(m_server.getText())) {
            mark(m_server);
        }
        for (const TextInput* const input : {&m_sender, &m_firstRecipient, &m_secondRecipient}) {
            if (!input->isEmpty() && !isMailAddress(input->getText())) {
                mark(*input);
            }
        }
        if (m_enabled.isEmpty()) {
            return;
        }
        for (const TextInput* const input : {&m_server, &m_port, &m_sender, &m_firstRecipient}) {
            if (input->isEmpty()) {
                mark(*input);
            }
        }
    }

private:
    template <typename Field>
    TextInput& addText(Text label, Text hint, const char* name) {
        return add(label, hint, std::make_unique<OptionalInput<Field>>(name, WIDTH, LONGEST_TEXT));
    }

    TextInput& addMailAddress(Text label, const char* name) {
        return addText<EmailAddressField>(label, TEXT_WRONG_MAIL_ADDRESS, name);
    }

    ChecksInput& m_enabled;
    TextInput& m_server;
    TextInput& m_port;
    TextInput& m_sender;
    TextInput& m_firstRecipient;
    TextInput& m_secondRecipient;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::MailPage>>();
}
