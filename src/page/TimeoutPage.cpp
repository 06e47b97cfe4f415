#include "gui/TimeoutPage.h"

#include "gui/TextString.h"
#include "message/Log.h"
#include "message/SitePaths.h"

namespace ORVLib::Gui {

TimeoutPage::TimeoutPage(MessageMgr& messages)
    : CommonDefaultPage(messages, Log::TIMEOUT_PAGE, nullptr, SitePaths::SKELETON_LOGIN_WAIT) {
    HTMLMapUtil::insertIntoMap(getMap(), "onload_function", new TextString("onLoadFunction()"));
}

TimeoutPage::~TimeoutPage() = default;

}  // namespace ORVLib::Gui
