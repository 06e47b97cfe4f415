#include "gui/TimeoutPage.h"

#include "base/SitePaths.h"
#include "gui/TextString.h"

namespace ORVLib::Gui {

namespace {

constexpr int PAGE_ID = 5890;

}  // namespace

TimeoutPage::TimeoutPage(MessageMgr& messages)
    : CommonDefaultPage(messages, PAGE_ID, nullptr, SitePaths::SKELETON_LOGIN_WAIT) {
    HTMLMapUtil::insertIntoMap(getMap(), "onload_function", new TextString("onLoadFunction()"));
}

TimeoutPage::~TimeoutPage() = default;

}  // namespace ORVLib::Gui
