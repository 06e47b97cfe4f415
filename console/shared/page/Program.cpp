#include "shared/page/Program.h"

#include <csignal>
#include <iostream>

#include "catalogue/Texts.h"
#include "gui/HTMLPage.h"
#include "gui/MessageMgr.h"
#include "orv/OrvTrace.h"
#include "shared/component/OuterPage.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

int refuse(const std::string& reason, const char* status, Text text) {
    constexpr int ENGLISH = 1;
    ORVLib::trace::OrvTrace trace(1, 2, 0);
    trace.putLog(0, "request refused: " + reason);
    MessageMgr messages(ENGLISH);
    HTMLPage page(ENGLISH);
    dressPage(page, messages.getString(TEXT_ERROR));
    putText(page.getMap(), "message", messages.getString(text));
    page.getGenerator().setSkeletonFileName(HTMLPage::SKELETON_ERR_FILE_NAME);
    // A page that has not begun can still say how the request failed.
    std::cout << "Status: " << status << '\n';
    page.getGenerator().printHTML();
    return -1;
}

}  // namespace

int refuseRequest(const std::string& reason) {
    return refuse(reason, "400 Bad Request", TEXT_UNREADABLE_REQUEST);
}

int refuseForeignPost() {
    return refuse("another site made it", "403 Forbidden", TEXT_FORM_CUT_OFF);
}

void ignoreOutputSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace Console
