#include "framework/page/PageMain.h"

#include "framework/access/PageLimits.h"
#include "framework/component/PageChrome.h"
#include "framework/input/Form.h"

using namespace ORVLib::Gui;

namespace Console {

void PageMain::chooseLanguage() {
    m_language = fieldOf(*m_formInfo, "language") == "0" ? 0 : 1;
}

void PageMain::beginPage(Text title) {
    m_messages = std::make_unique<MessageMgr>(m_language);
    m_page = std::make_unique<HTMLPage>(m_language);
    setTitleAndStyle(*m_page, m_messages->getString(title));
}

void PageMain::answerWithFile(const std::string& fileName) {
    putText(m_page->getMap(), "file_name", fileName);
    m_page->getGenerator().setSkeletonFileName(skeletonPath("skeleton_download.txt"));
}

void PageMain::printPage(std::unique_ptr<HTMLComponent> body) {
    HTMLMapUtil::insertIntoMap(m_page->getMap(), HTMLPage::KEY_BODY, std::move(body));
    notePageBegun();
    m_page->getGenerator().printHTML();
}

}  // namespace Console
