#include "gui/OutlineFramePage.h"

#include "gui/Frame.h"
#include "gui/TextString.h"

namespace ORVLib::Gui {

namespace {

constexpr char MENU_PAGE[] = "/common/menu.cgi";
constexpr char INFORMATION_PAGE[] = "/common/information.cgi";
constexpr int TEXT_NO_FRAMES = 182;

}  // namespace

OutlineFramePage::OutlineFramePage(int language, MessageMgr& messages)
    : HTMLPage(language), m_messages(&messages) {}

OutlineFramePage::~OutlineFramePage() = default;

void OutlineFramePage::makeMenuPath(int topMenuId, int menuId) {
    m_menuPath = std::string(MENU_PAGE) + "?load=1&tid=" + std::to_string(topMenuId) +
                 "&mid=" + std::to_string(menuId);
}

void OutlineFramePage::makeInfoPath(std::string menu0, std::string menu1, std::string menu2) {
    m_infoPath = INFORMATION_PAGE;
    m_infoPath.append("?menu0=").append(menu0).append("&menu1=").append(menu1);
    if (!menu2.empty()) {
        m_infoPath.append("&menu2=").append(menu2);
    }
    MessageMgr::encodeURL(m_infoPath);
}

void OutlineFramePage::createPage() {
    addFrame("info_frame", "INFO_FRAME", m_infoPath);
    addFrame("menu_frame", "MENU_FRAME", m_menuPath);
    addFrame("func_frame", "CONT_FRAME", m_functionPath);
    HTMLMapUtil::insertIntoMap(getMap(), "message",
                               std::make_unique<TextString>(m_messages->getString(TEXT_NO_FRAMES)));
}

void OutlineFramePage::addFrame(const char* marker, const char* name, const std::string& src) {
    HTMLMapUtil::insertIntoMap(getMap(), marker,
                               std::make_unique<Frame>(name, src, true, false, true));
}

}  // namespace ORVLib::Gui
