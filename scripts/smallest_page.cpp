#include <iostream>
#include <memory>

#include "gui/AbstractMain.h"
#include "gui/FormInfo.h"
#include "gui/HTMLMapUtil.h"
#include "gui/HTMLPage.h"
#include "gui/TextString.h"

using namespace ORVLib::Gui;

namespace {

/// The smallest page there is: one field of the request on a skeleton, without a session.
class SmallestPage : public AbstractMain {
public:
    SmallestPage(FormInfo& form, const char* skeleton)
        : AbstractMain(&form, 1), m_skeleton(skeleton) {}

protected:
    int execMain() override {
        std::string who = "world";
        m_formInfo->getFormData("who", who);
        m_page = std::make_unique<HTMLPage>(m_language);
        m_page->getGenerator().setSkeletonFileName(m_skeleton);
        HTMLMapUtil::insertIntoMap(m_page->getMap(), HTMLPage::KEY_BODY,
                                   std::make_unique<TextString>(who));
        m_page->getGenerator().printHTML();
        m_trace.putLog(0, "printed");
        return 0;
    }

private:
    const char* m_skeleton;
};

}  // namespace

/// Stays until its input ends, so that its memory can be looked at: smallest_page SKELETON
int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    FormInfo form;
    SmallestPage page(form, argv[1]);
    const int status = page.exec();
    std::cin.get();
    return status;
}
