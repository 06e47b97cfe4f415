// A page of 40 components in a skeleton, without a session.

#include "gui/AbstractMain.h"
#include "gui/FormInfo.h"
#include "ours/Labels.h"
#include "ours/SettingsForm.h"

using namespace ORVLib::Gui;

namespace {

constexpr int ENGLISH = 1;
constexpr int MODULE = 0x910;

class PageMain : public AbstractMain {
public:
    explicit PageMain(FormInfo& form) : AbstractMain(&form, MODULE) {}

private:
    int execMain() override {
        HTMLPage page(ENGLISH);
        Bench::fillPage(
            page, [](int number, void*) { return std::string(Bench::LABELS[number]); }, nullptr);
        page.getGenerator().printHTML();
        return 0;
    }
};

}  // namespace

int main() {
    FormInfo form;
    return PageMain(form).exec();
}
