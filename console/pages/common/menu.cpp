// The menu frame.

#include "framework/backend/Digits.h"
#include "framework/page/Outline.h"
#include "framework/page/Program.h"
#include "framework/page/SessionMain.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

class MenuMain : public SessionMain {
public:
    explicit MenuMain(FormInfo& form) : SessionMain(form, Module::MENU) {}

protected:
    void showPage(PageContext& context) override {
        beginPage(TEXT_FUNCTIONS);
        printPage(makeMenu(OutlineKind::FRAMES, context.requester, m_authority,
                           {number("tid"), number("mid")}, m_language));
    }

private:
    /// A field of the address that the frameset makes. Negative when it is no number.
    int number(const char* field) const {
        constexpr std::size_t MOST_DIGITS = 3;
        return readDigits(getField(field), MOST_DIGITS);
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::MenuMain>();
}
