// The information strip: the place in the menu, the user's name, and the button to log out.

#include "framework/backend/Board.h"
#include "framework/component/SkeletonPart.h"
#include "framework/page/PageStep.h"
#include "framework/page/Program.h"
#include "framework/page/SessionMain.h"
#include "gui/SubmitButton.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

class InformationMain : public SessionMain {
public:
    explicit InformationMain(FormInfo& form) : SessionMain(form, Module::INFORMATION) {}

protected:
    void showPage(PageContext& context) override {
        beginPage(TEXT_CONSOLE);
        auto strip = std::make_unique<SkeletonPart>("skeleton_information.txt");
        strip->putText("console", text(TEXT_CONSOLE));
        strip->putText("place", place());
        strip->putText("user_label", text(TEXT_USER_NAME));
        strip->putText("user", readUserName(context.requester));
        strip->putSentence("question", text(TEXT_ASK_UNSAVED));
        strip->put("logout", std::make_unique<SubmitButton>("logout", text(TEXT_LOGOUT)));
        strip->put(END_FIELD, makeFormEnd(context.requester));
        printPage(std::move(strip));
    }

private:
    /// The names in the address that the frameset makes, as a path.
    std::string place() const {
        std::string path;
        for (const char* const field : {"menu0", "menu1", "menu2"}) {
            const std::string name = getField(field);
            if (!name.empty()) {
                path += (path.empty() ? "" : " > ") + name;
            }
        }
        return path;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::InformationMain>();
}
