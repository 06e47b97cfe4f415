#pragma once

#include <stdexcept>
#include <string>

#include "catalogue/Texts.h"

namespace Console {

/// The ID of a function of the console: the library's tables have its page and its rights.
enum Function : int {};

/// The top menu that lists a function.
enum TopMenu {
    NO_MENU = -1,
    MENU_SYSTEM = 0,
    MENU_PARTITION = 1,
    MENU_USERS = 3,
    MENU_NETWORK = 4,
    MENU_MAINTENANCE = 5
};

/// Who may use a function. A page that changes anything always uses the table of rights.
enum class Access {
    BY_TABLE,    ///< the roles that the library's table of rights allows
    ANY_SESSION  ///< every logged-in user: for pages that only show something
};

/// A function of the console. The functions of the menu "Partition" work on one partition.
struct FunctionEntry {
    constexpr FunctionEntry(int id, TopMenu menu, Text name, Text instructions,
                            Access users = Access::BY_TABLE)
        : function{id}, topMenu(menu), title(name), help(instructions), access(users) {}

    Function function;
    TopMenu topMenu;
    Text title;
    Text help;  ///< what the function is for, with an example
    Access access;
};

/// All functions, in the order of the menu.
// clang-format off
constexpr FunctionEntry FUNCTIONS[] = {
    {  3, MENU_SYSTEM,      TEXT_STATUS,              TEXT_HELP_STATUS, Access::ANY_SESSION},
    {  8, MENU_SYSTEM,      TEXT_SYSTEM_INFORMATION,  TEXT_HELP_INFORMATION},
    { 10, MENU_SYSTEM,      TEXT_SYSTEM_POWER,        TEXT_HELP_SYSTEM_POWER},
    { 11, MENU_SYSTEM,      TEXT_LED,                 TEXT_HELP_LED},
    {153, MENU_SYSTEM,      TEXT_EVENTS,              TEXT_HELP_EVENTS},
    {154, MENU_SYSTEM,      TEXT_EVENT_FILTER,        TEXT_HELP_EVENT_FILTER},
    {  7, MENU_SYSTEM,      TEXT_EVENT_SEARCH,        TEXT_HELP_EVENT_SEARCH},
    { 30, MENU_PARTITION,   TEXT_PARTITION_POWER,     TEXT_HELP_PARTITION_POWER},
    { 31, MENU_PARTITION,   TEXT_SCHEDULE,            TEXT_HELP_SCHEDULE},
    { 45, MENU_PARTITION,   TEXT_BOOT,                TEXT_HELP_BOOT},
    { 60, MENU_USERS,       TEXT_USERS,               TEXT_HELP_USERS},
    { 61, NO_MENU,          TEXT_ADD_USER,            TEXT_HELP_ADD_USER},
    { 62, NO_MENU,          TEXT_EDIT_USER,           TEXT_HELP_EDIT_USER},
    { 63, MENU_USERS,       TEXT_CHANGE_PASSWORD,     TEXT_HELP_CHANGE_PASSWORD},
    { 64, MENU_USERS,       TEXT_SESSIONS,            TEXT_HELP_SESSIONS, Access::ANY_SESSION},
    { 70, MENU_NETWORK,     TEXT_CLOCK,               TEXT_HELP_CLOCK},
    { 72, MENU_NETWORK,     TEXT_ADDRESSES,           TEXT_HELP_ADDRESSES},
    { 74, MENU_NETWORK,     TEXT_SERVICES,            TEXT_HELP_SERVICES},
    { 75, MENU_NETWORK,     TEXT_REFRESH,             TEXT_HELP_REFRESH},
    { 77, MENU_NETWORK,     TEXT_TRAPS,               TEXT_HELP_TRAPS},
    { 88, MENU_NETWORK,     TEXT_ACCESS_LIST,         TEXT_HELP_ACCESS_LIST},
    { 89, NO_MENU,          TEXT_ADD_ACCESS,          TEXT_HELP_ADD_ACCESS},
    { 90, NO_MENU,          TEXT_REMOVE_ACCESS,       TEXT_HELP_REMOVE_ACCESS},
    { 92, MENU_NETWORK,     TEXT_MAIL,                TEXT_HELP_MAIL},
    {100, MENU_MAINTENANCE, TEXT_FIRMWARE,            TEXT_HELP_FIRMWARE},
    { 95, MENU_MAINTENANCE, TEXT_PROGRESS,            TEXT_HELP_PROGRESS},
    {104, MENU_MAINTENANCE, TEXT_BACKUP,              TEXT_HELP_BACKUP},
    {108, MENU_MAINTENANCE, TEXT_MAINTENANCE_MODE,    TEXT_HELP_MAINTENANCE},
};
// clang-format on

/// The function with a title. Does not compile as a constant when the table has none.
constexpr Function functionOf(Text title) {
    for (const FunctionEntry& entry : FUNCTIONS) {
        if (entry.title == title) {
            return entry.function;
        }
    }
    throw std::logic_error("no function has this title");
}

/// A function's entry. REQUIRES: the function comes from functionOf().
constexpr const FunctionEntry& entryOf(Function function) {
    for (const FunctionEntry& entry : FUNCTIONS) {
        if (entry.function == function) {
            return entry;
        }
    }
    throw std::logic_error("no such function");
}

/// The frameset, and the field of its address that names the function it shows.
constexpr char FRAME_PATH[] = "/common/frame.cgi";
constexpr char LOGIN_PATH[] = "/common/login.cgi";
constexpr char FUNCTION_FIELD[] = "fid";

/// The page without a session, and the fields of its address: whether the user has logged out, and
/// the language.
constexpr char TIMEOUT_PATH[] = "/common/timeout.cgi";
constexpr char LOGGED_OUT_FIELD[] = "logged_out";
constexpr char LANGUAGE_FIELD[] = "language";

/// The name of a top menu, 0 to 5, in the user's language.
std::string topMenuName(int topMenu, int language);

}  // namespace Console
