#include "shared/Page.h"

#include <exception>
#include <iostream>

#include "gui/HTMLPage.h"
#include "gui/MessageMgr.h"
#include "gui/TextString.h"
#include "orv/OrvTrace.h"
#include "orv/PException.h"
#include "shared/Texts.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int ENGLISH = 1;
constexpr char STYLE_SHEET[] = "/default.css";

void putText(HTMLPage& page, const std::string& marker, const std::string& text) {
    HTMLMapUtil::insertIntoMap(page.getMap(), marker, std::make_unique<TextString>(text));
}

void logFailure(const std::string& text) {
    ORVLib::trace::OrvTrace trace(1, 2, 0);
    trace.putLog(0, "request refused: " + text);
}

/// A page that has not begun can still say that the request was bad.
int refuseRequest(const std::string& reason) {
    logFailure(reason);
    MessageMgr messages(ENGLISH);
    HTMLPage page(ENGLISH);
    putText(page, "title", messages.getString(TEXT_ERROR));
    putText(page, "css", STYLE_SHEET);
    putText(page, "message", messages.getString(TEXT_UNREADABLE_REQUEST));
    page.getGenerator().setSkeletonFileName(HTMLPage::SKELETON_ERR_FILE_NAME);
    std::cout << "Status: 400 Bad Request\n";
    page.getGenerator().printHTML();
    return 1;
}

}  // namespace

int servePage(int (*work)(FormInfo& form)) {
    try {
        FormInfo form;
        form.readSkipData();
        return work(form);
    } catch (const ORVLib::PException& e) {
        return refuseRequest("exception detail " + std::to_string(e.getExceptionDetail()));
    } catch (const std::exception& e) {
        return refuseRequest(e.what());
    }
}

void printPage(int language, const std::string& title, std::unique_ptr<HTMLComponent> body) {
    HTMLPage page(language);
    putText(page, "title", title);
    putText(page, "css", STYLE_SHEET);
    HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_BODY, std::move(body));
    page.getGenerator().printHTML();
}

}  // namespace Console
