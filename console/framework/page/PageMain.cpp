#include "framework/page/PageMain.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <optional>

#include "framework/access/PageLimits.h"
#include "framework/backend/Environment.h"
#include "framework/backend/WaitLimit.h"
#include "framework/component/PageChrome.h"
#include "framework/input/Form.h"
#include "framework/page/ErrorPage.h"
#include "gui/CGIRequester.h"

using namespace ORVLib::Gui;

namespace Console {

PageMain::~PageMain() = default;

std::string PageMain::getField(const std::string& name) const {
    return fieldOf(*m_formInfo, name);
}

void PageMain::chooseLanguage() {
    m_language = getField(LANGUAGE_FIELD) == "0" ? 0 : 1;
}

bool PageMain::askLanguage() {
    constexpr int SHORT_MS = 2000;
    const WaitLimit limit(SHORT_MS);
    if (CGIRequester().getLanguage(m_language) != 0) {
        return true;
    }
    m_language = variable("HTTP_ACCEPT_LANGUAGE").rfind("ja", 0) == 0 ? 0 : 1;
    return false;
}

void PageMain::loadTexts() {
    m_messages = std::make_unique<MessageMgr>(m_language);
    setPageTexts(*m_messages);
}

void PageMain::beginPage(Text title) {
    if (!m_messages) {
        loadTexts();
    }
    m_page = std::make_unique<HTMLPage>(m_language);
    setTitleAndStyle(*m_page, text(title));
}

void PageMain::answerWithFile(const std::string& fileName) {
    m_isFile = true;
    putText(m_page->getMap(), "file_name", fileName);
    m_page->getGenerator().setSkeletonFileName(skeletonPath("skeleton_download.txt"));
}

void PageMain::printPage(Component body) {
    HTMLMapUtil::insertIntoMap(m_page->getMap(), HTMLPage::KEY_BODY, std::move(body));
    notePageBegun();
    m_page->getGenerator().printHTML();
}

void PageMain::errorExit(std::string /*title*/, int code) {
    const std::optional<int> language = m_messages ? std::optional<int>(m_language) : std::nullopt;
    const bool isChange = m_formInfo != nullptr && m_formInfo->isPostMethod();
    notePageBegun();
    printErrorPage(problemOf(code, isChange, getRoles()), language);
    if (!std::cout.flush() || std::fflush(stdout) != 0) {
        m_trace.putLog(0, "the error page could not be written to its end");
    }
    std::exit(-1);
}

}  // namespace Console
