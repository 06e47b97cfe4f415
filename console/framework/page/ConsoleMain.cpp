#include "framework/page/ConsoleMain.h"

#include "framework/access/Rights.h"
#include "framework/backend/Board.h"
#include "framework/component/Help.h"
#include "framework/component/PageChrome.h"
#include "framework/page/Outline.h"
#include "framework/page/Partitions.h"
#include "framework/page/Redirect.h"
#include "framework/page/SessionEnd.h"
#include "orv/PException.h"

using namespace ORVLib::Gui;

namespace Console {

std::unique_ptr<ListPart> ConsoleMain::makeListPart(Function function, const std::string& purpose,
                                                    Component content) {
    const FunctionEntry& entry = entryOf(function);
    auto part = std::make_unique<ListPart>(entry.title, purpose, std::move(content));
    part->put("help", std::make_unique<Help>(entry.help));
    return part;
}

std::unique_ptr<ListPart> ConsoleMain::makeListPart(Function function, Text purpose,
                                                    Component content) {
    return makeListPart(function, text(purpose), std::move(content));
}

void ConsoleMain::showPage(PageContext& context) {
    const Function function = getFunction();
    beginPage(getTitle());
    setTitle(getTitle());
    const bool hasPartition =
        entryOf(function).topMenu != MENU_PARTITION || choosePartition(context, function);
    if (!hasPartition || !mayUse(context.requester, m_authority, function, context.partition)) {
        errorExit("Error", ERROR_NOT_AUTHORISED);
    }
    HTMLMapUtil::insertIntoMap(m_page->getMap(), "skip_link",
                               makeLink("#content", text(TEXT_SKIP), "", "skip"));
    if (isSelfRefreshing()) {
        setAutoRefresh(*m_page);
    }
    HTMLMapUtil::insertIntoMap(m_page->getMap(), "session",
                               makeSessionEnd(context, !isSelfRefreshing()));
    Component body = makeBody(context);
    if (!m_redirect.empty()) {
        printRedirect(*m_page, m_redirect);
        return;
    }
    if (!usesFrames() && !isAnsweredWithFile()) {
        putOutline(context);
    }
    printPage(std::move(body));
}

void ConsoleMain::setTitle(Text title) {
    m_title = text(title);
    setTitleAndStyle(*m_page, m_title);
    if (!usesFrames()) {
        putSentence(m_page->getMap(), "title", m_title + " - " + text(TEXT_CONSOLE));
    }
}

/// A form may have changed something: the page that says so is shown without the rest when the
/// board fails only now.
void ConsoleMain::putOutline(const PageContext& context) {
    const MenuPlace place = placeOf(getFunction());
    Component strip;
    try {
        strip =
            makeStrip(OutlineKind::PAGE, context.requester, placeText(place, m_title, m_language));
    } catch (const ORVLib::PException&) {
        if (!context.form.isPostMethod()) {
            throw;
        }
        logError(moduleOf(getFunction()), "the board failed after it answered the form");
        return;
    }
    HTMLMapUtil::insertIntoMap(m_page->getMap(), "strip", std::move(strip));
    HTMLMapUtil::insertIntoMap(
        m_page->getMap(), "menu",
        makeMenu(OutlineKind::PAGE, context.requester, m_authority, place, m_language));
    m_page->getGenerator().setSkeletonFileName(skeletonPath("skeleton_console.txt"));
}

}  // namespace Console
