#pragma once

#include <string>

#include "gui/HTMLPage.h"
#include "gui/MessageMgr.h"

namespace ORVLib::Gui {

/// The frameset: an information strip, the menu and the function frame. Its layout is the
/// skeleton's, which has the markers "info_frame", "menu_frame", "func_frame" and "message".
///
/// Set the three paths, call createPage(), print the page.
class ORVGUI_EXPORT OutlineFramePage : public HTMLPage {
public:
    /// `messages` is not owned and must outlive the page.
    OutlineFramePage(int language, MessageMgr& messages);
    ~OutlineFramePage() override;

    /// What the function frame shows first. A URL of the page's own: it is not escaped.
    void setFunctionPath(const std::string& path) { m_functionPath = path; }
    const std::string& getFunctionPath() const { return m_functionPath; }

    /// Where the menu starts: a top menu, and a function in it.
    void makeMenuPath(int topMenuId, int menuId);
    const std::string& getMenuPath() const { return m_menuPath; }

    /// Where the user is, as up to three menu names; an empty last one is left out. The path is
    /// encoded as a whole, so the names must not hold "&", "=", "+", "%" or a quote.
    void makeInfoPath(std::string menu0, std::string menu1, std::string menu2);
    const std::string& getInfoPath() const { return m_infoPath; }

    /// Puts the frames, and the message for browsers that show none, into the page's map.
    void createPage();

private:
    void addFrame(const char* marker, const char* name, const std::string& src);

    MessageMgr* m_messages;
    std::string m_functionPath;
    std::string m_infoPath;
    std::string m_menuPath;
};

}  // namespace ORVLib::Gui
