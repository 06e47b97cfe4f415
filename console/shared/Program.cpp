#include "shared/Program.h"

#include <csignal>
#include <iostream>

#include "gui/HTMLPage.h"
#include "gui/MessageMgr.h"
#include "orv/OrvTrace.h"
#include "shared/OuterPage.h"
#include "shared/Texts.h"

using namespace ORVLib::Gui;

namespace Console {

int refuseRequest(const std::string& reason) {
    constexpr int ENGLISH = 1;
    ORVLib::trace::OrvTrace trace(1, 2, 0);
    trace.putLog(0, "request refused: " + reason);
    MessageMgr messages(ENGLISH);
    HTMLPage page(ENGLISH);
    dressPage(page, messages.getString(TEXT_ERROR));
    putText(page.getMap(), "message", messages.getString(TEXT_UNREADABLE_REQUEST));
    page.getGenerator().setSkeletonFileName(HTMLPage::SKELETON_ERR_FILE_NAME);
    // A page that has not begun can still say that the request was bad.
    std::cout << "Status: 400 Bad Request\n";
    page.getGenerator().printHTML();
    return -1;
}

void ignoreOutputSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace Console
