#pragma once

#include <string>
#include <vector>

#include "catalogue/Texts.h"
#include "gui/MessageMgr.h"

namespace Console {

/// IDs of the console's functions: which roles may use one, and where its page lies, hang on them.
enum Function {
    FUNCTION_STATUS = 3,
    FUNCTION_EVENT_SEARCH = 7,
    FUNCTION_SYSTEM_INFORMATION = 8,
    FUNCTION_SYSTEM_POWER = 10,
    FUNCTION_LED = 11,
    FUNCTION_PARTITION_POWER = 30,
    FUNCTION_SCHEDULE = 31,
    FUNCTION_BOOT = 45,
    FUNCTION_USERS = 60,
    FUNCTION_ADD_USER = 61,
    FUNCTION_EDIT_USER = 62,
    FUNCTION_CHANGE_PASSWORD = 63,
    FUNCTION_SESSIONS = 64,
    FUNCTION_CLOCK = 70,
    FUNCTION_ADDRESSES = 72,
    FUNCTION_SERVICES = 74,
    FUNCTION_REFRESH = 75,
    FUNCTION_TRAPS = 77,
    FUNCTION_ACCESS_LIST = 88,
    FUNCTION_ADD_ACCESS = 89,
    FUNCTION_REMOVE_ACCESS = 90,
    FUNCTION_MAIL = 92,
    FUNCTION_PROGRESS = 95,
    FUNCTION_FIRMWARE = 100,
    FUNCTION_BACKUP = 104,
    FUNCTION_MAINTENANCE_MODE = 108,
    FUNCTION_EVENTS = 153,
    FUNCTION_EVENT_FILTER = 154
};

/// Who may use a function. A page that changes anything always goes by the table of rights.
enum class Access {
    BY_TABLE,    ///< the roles that the library's table of rights allows
    ANY_SESSION  ///< whoever is logged in: for pages that only show something
};

/// A function as the menu knows it.
struct FunctionEntry {
    Function function;
    int topMenu;  ///< 0 to 5, or NO_MENU
    Text title;
    Access access;
};

constexpr int NO_MENU = -1;

/// The frameset, and the field of its address that says which function it shows.
constexpr char FRAME_PATH[] = "/common/frame.cgi";
constexpr char LOGIN_PATH[] = "/common/login.cgi";
constexpr char FUNCTION_FIELD[] = "fid";

/// All functions, in the order of the menu.
const std::vector<FunctionEntry>& functionTable();

/// A function's entry. Throws std::logic_error when the table lacks it.
const FunctionEntry& entryOf(Function function);

/// What a function's page is called.
Text titleOf(Function function);

/// The name of a top menu, 0 to 5, in the user's language.
std::string topMenuName(int topMenu, int language, ORVLib::Gui::MessageMgr& messages);

}  // namespace Console
