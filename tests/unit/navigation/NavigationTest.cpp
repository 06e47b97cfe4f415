#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>

#include "gui/Frame.h"
#include "gui/MenuData.h"
#include "gui/ORVGUIUtil.h"
#include "gui/OutlineFramePage.h"
#include "support/Captured.h"

using namespace ORVLib::Gui;

namespace {

TEST(Frame, PrintsItsFlags) {
    EXPECT_EQ(printed(Frame("F", "/a?b=1", true, false, true)),
              R"(<frame name="F" src="/a?b=1" frameborder="no">)");
    EXPECT_EQ(printed(Frame("F", "/a")),
              R"(<frame name="F" src="/a" scrolling="no" frameborder="no" noresize>)");
    EXPECT_EQ(printed(Frame("F", "/a", true, true, false)),
              R"(<frame name="F" src="/a" frameborder="yes" noresize>)");
}

TEST(TopMenus, HaveNames) {
    EXPECT_STREQ(MenuData::getTopMenuName(3, 0, nullptr), "User Administration");
    EXPECT_EQ(MenuData::getTopMenuFullName(2, 1), "Switch");
    char out[MenuData::NAME_SIZE + 1];
    std::memset(out, 'x', sizeof out);
    MenuData::getTopMenuName(0, 1, out);
    EXPECT_EQ(std::string(out, 8), "Systemxx") << "no NUL is written";
    for (const int menu : {-1, 6, INT_MAX, INT_MIN}) {
        EXPECT_STREQ(MenuData::getTopMenuName(menu, 0, out), "");
        EXPECT_EQ(MenuData::getTopMenuFullName(menu, 0), "");
    }
}

TEST(FunctionPath, IsThatOfItsPage) {
    for (const int id : {2, 5, 18, 50, 155, -1, INT_MAX, INT_MIN}) {
        const CapturedTrace trace;
        EXPECT_EQ(ORVGUIUtil::getCGIPath(id), "");
        EXPECT_TRUE(trace.has(200, 2058, "Illegal function ID: " + std::to_string(id)));
        EXPECT_EQ(trace.entries().size(), 1U);
    }
    std::uint32_t all = 2166136261;  // FNV-1a over the 160 lines that the paths are
    for (int id = 0; id < 160; ++id) {
        for (const char character : ORVGUIUtil::getCGIPath(id) + '\n') {
            all = (all ^ static_cast<unsigned char>(character)) * 16777619;
        }
    }
    EXPECT_EQ(all, 0x405c00fdU)
        << "bookmarks, menus and web servers know these paths: none may change";
}

TEST(Frameset, HasItsThreeFrames) {
    MessageMgr messages(1);
    OutlineFramePage page(0, messages);
    page.setFunctionPath("/system/sys_status.cgi");
    page.makeMenuPath(1, 37);
    page.makeInfoPath("User Administration", "\xa4", "");
    EXPECT_EQ(page.getInfoPath(), "/common/information.cgi?menu0=User+Administration&menu1=%A4");
    page.makeInfoPath("System", "", "Fan #1");
    page.createPage();
    ComponentMap& map = page.getMap();
    EXPECT_EQ(printed(*map.at("info_frame")),
              R"(<frame name="INFO_FRAME" src="/common/information.cgi?menu0=System&menu1=)"
              R"(&menu2=Fan+%231" frameborder="no">)");
    EXPECT_EQ(printed(*map.at("menu_frame")),
              R"(<frame name="MENU_FRAME" src="/common/menu.cgi?load=1&tid=1&mid=37" )"
              R"(frameborder="no">)");
    EXPECT_EQ(printed(*map.at("func_frame")),
              R"(<frame name="CONT_FRAME" src="/system/sys_status.cgi" frameborder="no">)");
    EXPECT_EQ(map.count("message"), 1U);
    EXPECT_EQ(printed(*map.at("destination")), "EUC-JP");
}

}  // namespace
