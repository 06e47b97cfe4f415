#include "framework/access/Functions.h"

#include <algorithm>
#include <stdexcept>

#include "gui/MenuData.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

enum TopMenu { SYSTEM = 0, PARTITION = 1, USERS = 3, NETWORK = 4, MAINTENANCE = 5 };

constexpr Access TABLE = Access::BY_TABLE;
constexpr Access ANY = Access::ANY_SESSION;

}  // namespace

const std::vector<FunctionEntry>& functionTable() {
    // clang-format off
    static const std::vector<FunctionEntry> TABLE_OF_FUNCTIONS = {
        {FUNCTION_STATUS,             SYSTEM,      TEXT_STATUS,             ANY},
        {FUNCTION_SYSTEM_INFORMATION, SYSTEM,      TEXT_SYSTEM_INFORMATION, TABLE},
        {FUNCTION_SYSTEM_POWER,       SYSTEM,      TEXT_SYSTEM_POWER,       TABLE},
        {FUNCTION_LED,                SYSTEM,      TEXT_LED,                TABLE},
        {FUNCTION_EVENTS,             SYSTEM,      TEXT_EVENTS,             TABLE},
        {FUNCTION_EVENT_FILTER,       SYSTEM,      TEXT_EVENT_FILTER,       TABLE},
        {FUNCTION_EVENT_SEARCH,       SYSTEM,      TEXT_EVENT_SEARCH,       TABLE},
        {FUNCTION_PARTITION_POWER,    PARTITION,   TEXT_PARTITION_POWER,    TABLE},
        {FUNCTION_SCHEDULE,           PARTITION,   TEXT_SCHEDULE,           TABLE},
        {FUNCTION_BOOT,               PARTITION,   TEXT_BOOT,               TABLE},
        {FUNCTION_USERS,              USERS,       TEXT_USERS,              TABLE},
        {FUNCTION_ADD_USER,           NO_MENU,     TEXT_ADD_USER,           TABLE},
        {FUNCTION_EDIT_USER,          NO_MENU,     TEXT_EDIT_USER,          TABLE},
        {FUNCTION_CHANGE_PASSWORD,    USERS,       TEXT_CHANGE_PASSWORD,    TABLE},
        {FUNCTION_SESSIONS,           USERS,       TEXT_SESSIONS,           ANY},
        {FUNCTION_CLOCK,              NETWORK,     TEXT_CLOCK,              TABLE},
        {FUNCTION_ADDRESSES,          NETWORK,     TEXT_ADDRESSES,          TABLE},
        {FUNCTION_SERVICES,           NETWORK,     TEXT_SERVICES,           TABLE},
        {FUNCTION_REFRESH,            NETWORK,     TEXT_REFRESH,            TABLE},
        {FUNCTION_TRAPS,              NETWORK,     TEXT_TRAPS,              TABLE},
        {FUNCTION_ACCESS_LIST,        NETWORK,     TEXT_ACCESS_LIST,        TABLE},
        {FUNCTION_ADD_ACCESS,         NO_MENU,     TEXT_ADD_ACCESS,         TABLE},
        {FUNCTION_REMOVE_ACCESS,      NO_MENU,     TEXT_REMOVE_ACCESS,      TABLE},
        {FUNCTION_MAIL,               NETWORK,     TEXT_MAIL,               TABLE},
        {FUNCTION_FIRMWARE,           MAINTENANCE, TEXT_FIRMWARE,           TABLE},
        {FUNCTION_PROGRESS,           MAINTENANCE, TEXT_PROGRESS,           TABLE},
        {FUNCTION_BACKUP,             MAINTENANCE, TEXT_BACKUP,             TABLE},
        {FUNCTION_MAINTENANCE_MODE,   MAINTENANCE, TEXT_MAINTENANCE_MODE,   TABLE},
    };
    // clang-format on
    return TABLE_OF_FUNCTIONS;
}

const FunctionEntry& entryOf(Function function) {
    const auto& table = functionTable();
    const auto found = std::find_if(table.begin(), table.end(), [function](const auto& entry) {
        return entry.function == function;
    });
    if (found == table.end()) {
        throw std::logic_error("no such function");
    }
    return *found;
}

Text titleOf(Function function) {
    return entryOf(function).title;
}

std::string topMenuName(int topMenu, int language, MessageMgr& messages) {
    constexpr int JAPANESE = 0;
    return language == JAPANESE ? messages.getString(TEXT_MENU_SYSTEM + topMenu)
                                : MenuData::getTopMenuFullName(topMenu, language);
}

}  // namespace Console
