// The frame of the information strip.

#include "framework/page/Outline.h"
#include "framework/page/Program.h"
#include "framework/page/SessionMain.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

class InformationMain : public SessionMain {
public:
    explicit InformationMain(FormInfo& form) : SessionMain(form, Module::INFORMATION) {}

protected:
    void showPage(PageContext& context) override {
        beginPage(TEXT_CONSOLE);
        printPage(makeStrip(OutlineKind::FRAMES, context.requester, place()));
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
