#pragma once

#include <string>

#include "gui/HTMLPage.h"
#include "gui/MessageMgr.h"

namespace ORVLib::Gui {

/// The frameset of the console: the information frame, the menu frame and the function frame. The
/// skeleton defines the layout and has the markers "info_frame", "menu_frame", "func_frame" and
/// "message".
///
/// @code
/// MessageMgr messages(1);
/// OutlineFramePage page(1, messages);
/// page.setFunctionPath("/system/sys_status.cgi");
/// page.makeMenuPath(0, 3);
/// page.makeInfoPath("System", "System status", "");
/// page.createPage();
/// page.getGenerator().setSkeletonFileName("/usr/local/www/skel/skeleton_frame.txt");
/// page.getGenerator().printHTML();
/// @endcode
class ORVGUI_EXPORT OutlineFramePage : public HTMLPage {
public:
    /// `messages` is not owned and must outlive the page.
    OutlineFramePage(int language, MessageMgr& messages);
    ~OutlineFramePage() override;

    /// The URL of the first page in the function frame. It is not escaped.
    void setFunctionPath(const std::string& path) { m_functionPath = path; }
    const std::string& getFunctionPath() const { return m_functionPath; }

    /// Makes the URL of the menu frame. `topMenuId` is the top menu that is open, `menuId` the
    /// selected function in it.
    void makeMenuPath(int topMenuId, int menuId);
    const std::string& getMenuPath() const { return m_menuPath; }

    /// Makes the URL of the information frame, which shows the menu names that lead to the current
    /// page. An empty `menu2` is left out. The URL is encoded as a whole.
    /// REQUIRES: the names do not contain "&", "=", "+", "%" or a double quote.
    void makeInfoPath(std::string menu0, std::string menu1, std::string menu2);
    const std::string& getInfoPath() const { return m_infoPath; }

    /// Puts the three frames, and the message for browsers without frames, into the page's map.
    void createPage();

private:
    void addFrame(const char* marker, const char* name, const std::string& src);

    MessageMgr* m_messages;
    std::string m_functionPath;
    std::string m_infoPath;
    std::string m_menuPath;
};

}  // namespace ORVLib::Gui
