#include "gui/CommonDefaultPage.h"

#include "base/Log.h"
#include "base/SitePaths.h"
#include "gui/Button.h"
#include "gui/FormInfo.h"
#include "gui/HTMLPage.h"
#include "gui/HiddenField.h"
#include "gui/TextString.h"

namespace ORVLib::Gui {

namespace {

constexpr char FORM_NAME[] = "form_name";
constexpr int TEXT_OK = 14;
constexpr int NO_CODE = 0;

FormInfo& requestOfProcess() {
    if (FormInfo::myInstance == nullptr) {
        FormInfo::myInstance = new FormInfo;
    }
    return *FormInfo::myInstance;
}

}  // namespace

CommonDefaultPage::CommonDefaultPage(MessageMgr& messages, int pageId, const int* pageState,
                                     const std::string& skeletonFileName)
    : m_generator(std::make_unique<HTMLCodeGenerator>(&m_map)),
      m_messages(&messages),
      m_trace(Log::CATEGORY, Log::SUB_CATEGORY, pageId),
      m_pageState(pageState),
      m_pageId(pageId) {
    m_generator->setSkeletonFileName(skeletonFileName);
}

CommonDefaultPage::~CommonDefaultPage() {
    HTMLMapUtil::clearMap(m_map);
}

void CommonDefaultPage::printHTML() const {
    m_generator->printHTML();
}

bool CommonDefaultPage::isError() const {
    return m_error;
}

void CommonDefaultPage::makeDispPage() {}

void CommonDefaultPage::makeConfigPage() {}

int CommonDefaultPage::getNextPageState(int state, bool redisplay) {
    switch (state) {
        case STATE_CONFIGURE:
            return STATE_CONFIRM;
        case STATE_CONFIRM:
            return redisplay ? STATE_CONFIRM : STATE_COMPLETE;
        case 0:
            return 0;
        default:
            return NO_NEXT_STATE;
    }
}

void CommonDefaultPage::makePage() {
    const bool post = requestOfProcess().isPostMethod();
    if (post && getPageState() == STATE_CONFIGURE) {
        makeConfigPage();
    } else {
        makeDispPage();
    }
}

// Programs that were built when there was one form of addNextPageItem() link this name.
extern "C" ORVGUI_EXPORT void orvguiAddNextPageItem(
    CommonDefaultPage* page, const int* state,
    bool redisplay) __asm__("_ZN6ORVLib3Gui17CommonDefaultPage15addNextPageItemEPKib");

void orvguiAddNextPageItem(CommonDefaultPage* page, const int* state, bool redisplay) {
    page->addNextPageItem(state, redisplay);
}

void CommonDefaultPage::addNextState(const int* state, bool redisplay) {
    const int next = state != nullptr ? getNextPageState(*state, redisplay) : NO_NEXT_STATE;
    if (next > 0) {
        HTMLMapUtil::insertIntoMap(
            m_map, HTMLPage::FORM_PAGE_STATE,
            new HiddenField(HTMLPage::FORM_PAGE_STATE, std::to_string(next), FORM_NAME));
    }
}

void CommonDefaultPage::setComplPageItemToMap(const std::string& title, const std::string& onClick,
                                              int messageId) {
    m_generator->setSkeletonFileName(SitePaths::SKELETON_COMPLETE);
    HTMLMapUtil::insertIntoMap(m_map, "title", new TextString(title));
    HTMLMapUtil::insertIntoMap(m_map, "message",
                               new TextString(m_messages->getMessage(messageId, NO_CODE)));
    HTMLMapUtil::insertIntoMap(
        m_map, "submit", new Button("OK", m_messages->getString(TEXT_OK), FORM_NAME, 0, onClick));
}

}  // namespace ORVLib::Gui
