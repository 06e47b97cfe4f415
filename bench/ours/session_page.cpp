// The same page for a user: cookie, session check against the daemon, labels from the catalogue.

#include "gui/AbstractMain.h"
#include "gui/FormInfo.h"
#include "ours/SettingsForm.h"

using namespace ORVLib::Gui;

namespace {

constexpr int MODULE = 0x911;

class PageMain : public AbstractMain {
public:
    explicit PageMain(FormInfo& form) : AbstractMain(&form, MODULE) {}

private:
    int execMain() override {
        getCookie();
        guiCheckSession(false);
        MessageMgr messages(m_language);
        HTMLPage page(m_language);
        Bench::fillPage(
            page,
            [](int number, void* catalogue) {
                return static_cast<MessageMgr*>(catalogue)->getString(number);
            },
            &messages);
        page.getGenerator().printHTML();
        return 0;
    }
};

}  // namespace

int main() {
    FormInfo form;
    return PageMain(form).exec();
}
