#include "item/Items.h"

#include <algorithm>
#include <cstdio>

#include "item/Backup.h"
#include "item/BoardClock.h"
#include "item/Device.h"
#include "item/EventLog.h"
#include "item/Firmware.h"
#include "item/Installation.h"
#include "item/ItemValidators.h"
#include "item/Maintenance.h"
#include "item/Network.h"
#include "item/OwnSettings.h"
#include "item/Power.h"
#include "item/Users.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

// Who may use an item. P is an administrator of the item's partition, or of any partition where
// the item has none.
enum Who : unsigned int {
    NOBODY = 0,
    A = 1,        // system administrators
    P = 2,        // partition administrators
    S = 4,        // technical staff
    O = 8,        // operators
    M = 16,       // technical staff while the maintenance mode gives them the power
    USERS = 32,   // whoever is logged in
    PUBLIC = 64,  // without a session too
    ASKED = 128   // nobody writes; what readers exchange is a question
};

// Items that the board has once, and that each partition has.
enum Scope { ONE, EACH };

struct Rule {
    std::uint32_t id;
    Scope scope;
    unsigned int readers;
    unsigned int writers;
    bool (*isValid)(const std::string& content);  // what is written, and what is stored as written
};

// clang-format off
constexpr Rule RULES[] = {
    {ITEM_DEFAULT_LANGUAGE,       ONE,  PUBLIC, A,       isLanguage},
    {PROCEDURE_LOGIN,             ONE,  NOBODY, NOBODY,  isAnything},
    {ITEM_STATUS,                 ONE,  USERS,  NOBODY,  isAnything},
    {PROCEDURE_LOGOUT,            ONE,  NOBODY, NOBODY,  isAnything},
    {PROCEDURE_CHECK_SESSION,     ONE,  NOBODY, NOBODY,  isAnything},
    {ITEM_PRODUCT,                ONE,  USERS,  NOBODY,  isProduct},
    {ITEM_SYSTEM_NAMES,           ONE,  USERS,  A,       isSystemNames},
    {ITEM_SYSTEM_POWER,           ONE,  USERS,  A|M,     Power::isOperation},
    {ITEM_LED,                    ONE,  USERS,  USERS,   isLed},
    {PROCEDURE_GET_USER_INFO,     ONE,  NOBODY, NOBODY,  isAnything},
    {ITEM_OWN_LANGUAGE,           ONE,  USERS,  USERS,   isOwnLanguage},
    {ITEM_OWN_REFRESH_INTERVAL,   ONE,  USERS,  USERS,   isInterval},
    {ITEM_OWN_PASSWORD,           ONE,  NOBODY, USERS,   isPasswordChange},
    {ITEM_OWN_DEVICE,             ONE,  USERS,  ASKED,   Device::isQuestion},
    {ITEM_PARTITIONS,             ONE,  USERS,  NOBODY,  isAnything},
    {ITEM_USERS,                  ONE,  A,      NOBODY,  isAnything},
    {ITEM_USER_ADD,               ONE,  NOBODY, A,       Users::isNewUser},
    {ITEM_USER_EDIT,              ONE,  NOBODY, A,       Users::isChangedUser},
    {ITEM_USER_REMOVE,            ONE,  NOBODY, A,       Users::isUserName},
    {ITEM_SESSIONS,               ONE,  USERS,  NOBODY,  isAnything},
    {ITEM_CLOCK,                  ONE,  USERS,  A,       BoardClock::isTime},
    {ITEM_ADDRESSES,              ONE,  USERS,  A,       isAddresses},
    {ITEM_SERVICES,               ONE,  USERS,  A,       isServices},
    {ITEM_TRAPS,                  ONE,  USERS,  A,       isTraps},
    {ITEM_ACCESS_LIST,                    ONE,  A,      NOBODY,  isAccessList},
    {ITEM_ACCESS_LIST_ADD,                ONE,  NOBODY, A,       isAccessRow},
    {ITEM_ACCESS_LIST_REMOVE,             ONE,  NOBODY, A,       isAccessRow},
    {ITEM_MAIL,                   ONE,  A,      A,       isMail},
    {ITEM_PROGRESS,               ONE,  USERS,  NOBODY,  Installation::isProgress},
    {ITEM_FIRMWARE_STAGE,         ONE,  NOBODY, A|S,     Firmware::isPiece},
    {ITEM_FIRMWARE_STAGED,        ONE,  A|S,    NOBODY,  isAnything},
    {ITEM_FIRMWARE_START,         ONE,  NOBODY, A|S,     Firmware::isDigest},
    {ITEM_FIRMWARE_DROP,          ONE,  NOBODY, A|S,     Firmware::isDrop},
    {ITEM_BACKUP,                 ONE,  A|S,    A|S,     isAnything},
    {ITEM_HTTPS_PORT,             ONE,  PUBLIC, A,       isPort},
    {ITEM_EVENTS,                 ONE,  USERS,  ASKED,   EventLog::isQuery},
    {ITEM_OWN_EVENT_FILTER,       ONE,  USERS,  USERS,   EventLog::isFilter},
    {ITEM_MAINTENANCE_MODE,       ONE,  USERS,  A|S,     Maintenance::isMode},
    {ITEM_MAINTENANCE_PERMISSION, ONE,  USERS,  A,       Maintenance::isPermission},
    {ITEM_PARTITION_POWER,        EACH, USERS,  A|P|O|M, Power::isOperation},
    {ITEM_PARTITION_SCHEDULE,     EACH, USERS,  A|P|O,   isSchedule},
    {ITEM_PARTITION_BOOT,         EACH, USERS,  A|P|O,   isBoot},
};
// clang-format on

constexpr Rule OTHERS = {0, ONE, USERS, A, isAnything};

// What the event log calls settings that are stored as they come.
struct Name {
    std::uint32_t id;
    const char* name;
};

constexpr Name NAMES[] = {
    {ITEM_DEFAULT_LANGUAGE, "default language"},
    {ITEM_SYSTEM_NAMES, "system names"},
    {ITEM_ADDRESSES, "network addresses"},
    {ITEM_SERVICES, "network services"},
    {ITEM_TRAPS, "trap receivers"},
    {ITEM_MAIL, "mail notification"},
    {ITEM_MAINTENANCE_PERMISSION, "maintenance permission"},
    {ITEM_PARTITION_SCHEDULE, "power schedule"},
    {ITEM_PARTITION_BOOT, "boot settings"},
};

// Items that are more than stored bytes.
struct Handler {
    std::uint32_t id;
    std::string (*read)(const Call& call);
    void (*write)(const Call& call);
};

// clang-format off
constexpr Handler HANDLERS[] = {
    {ITEM_STATUS,               Power::readStatus,         nullptr},
    {ITEM_SYSTEM_POWER,         Power::readSystem,         Power::operateSystem},
    {ITEM_OWN_LANGUAGE,         OwnSettings::readLanguage, OwnSettings::writeLanguage},
    {ITEM_OWN_REFRESH_INTERVAL, OwnSettings::readInterval, OwnSettings::writeInterval},
    {ITEM_OWN_PASSWORD,         nullptr,                   OwnSettings::writePassword},
    {ITEM_OWN_DEVICE,           Device::answer,            nullptr},
    {ITEM_PARTITIONS,           Power::listPartitions,     nullptr},
    {ITEM_USERS,                Users::list,               nullptr},
    {ITEM_USER_ADD,             nullptr,                   Users::add},
    {ITEM_USER_EDIT,            nullptr,                   Users::edit},
    {ITEM_USER_REMOVE,          nullptr,                   Users::remove},
    {ITEM_SESSIONS,             Users::listSessions,       nullptr},
    {ITEM_CLOCK,                BoardClock::read,          BoardClock::write},
    {ITEM_ACCESS_LIST_ADD,              nullptr,                   Network::addAccess},
    {ITEM_ACCESS_LIST_REMOVE,           nullptr,                   Network::removeAccess},
    {ITEM_PROGRESS,             Firmware::readProgress,    nullptr},
    {ITEM_FIRMWARE_STAGE,       nullptr,                   Firmware::stage},
    {ITEM_FIRMWARE_STAGED,      Firmware::readStaged,      nullptr},
    {ITEM_FIRMWARE_START,       nullptr,                   Firmware::start},
    {ITEM_FIRMWARE_DROP,        nullptr,                   Firmware::drop},
    {ITEM_BACKUP,               Backup::read,              Backup::restore},
    {ITEM_HTTPS_PORT,           Network::readHttpsPort,    Network::writeHttpsPort},
    {ITEM_EVENTS,               EventLog::answer,          nullptr},
    {ITEM_OWN_EVENT_FILTER,     EventLog::readFilter,      EventLog::writeFilter},
    {ITEM_PARTITION_POWER,      Power::readPartition,      Power::operatePartition},
};
// clang-format on

bool isOf(const Rule& rule, std::uint32_t id) {
    return rule.id == (rule.scope == EACH ? id & ~PARTITION_MASK : id);
}

const Rule& findRule(std::uint32_t id) {
    const auto* const found = std::find_if(std::begin(RULES), std::end(RULES),
                                           [id](const Rule& rule) { return isOf(rule, id); });
    return found != std::end(RULES) ? *found : OTHERS;
}

// The entry of a table with such an ID, or null.
template <class Entry, std::size_t COUNT>
const Entry* findEntry(const Entry (&table)[COUNT], std::uint32_t id) {
    const auto* const found = std::find_if(std::begin(table), std::end(table),
                                           [id](const Entry& entry) { return entry.id == id; });
    return found != std::end(table) ? found : nullptr;
}

const Rule& requireRule(std::uint32_t id) {
    const Rule& rule = findRule(id);
    if (rule.scope == EACH && (id & PARTITION_MASK) >= PARTITION_COUNT) {
        throw boardError(ERROR_NO_SUCH_ITEM, "there is no such partition", id);
    }
    return rule;
}

void requireFit(const Rule& rule, std::uint32_t id, const std::string& content) {
    if (!rule.isValid(content)) {
        throw boardError(ERROR_BAD_REQUEST, "the payload does not fit the item", id);
    }
}

// What a user is, for this item.
unsigned int rolesOf(const Authority& authority, const Rule& rule, std::uint32_t id) {
    const std::uint32_t partitions =
        rule.scope == EACH ? 1U << (id & PARTITION_MASK) : ~std::uint32_t{0};
    const auto has = [&authority](std::uint32_t role) { return (authority.roles & role) != 0; };
    return USERS | PUBLIC | (has(ROLE_SYSTEM_ADMINISTRATOR) ? A : 0U) |
           ((authority.partitions & partitions) != 0 ? P : 0U) |
           (has(ROLE_TECHNICAL_STAFF) ? S : 0U) | (has(ROLE_OPERATOR) ? O : 0U);
}

bool isAmong(unsigned int who, const Caller* caller, const Rule& rule, std::uint32_t id,
             BoardState& state) {
    if (caller == nullptr) {
        return (who & PUBLIC) != 0;
    }
    const unsigned int roles = rolesOf(caller->user.authority, rule, id);
    return (roles & who) != 0 ||
           ((who & M) != 0 && (roles & S) != 0 && Maintenance::allowsPower(state));
}

std::string describe(std::uint32_t id) {
    const Rule& rule = findRule(id);
    const Name* const name = findEntry(NAMES, rule.id);
    if (name == nullptr) {
        char text[sizeof "item 0x00000000"];
        std::snprintf(text, sizeof text, "item 0x%08x", id);
        return text;
    }
    return rule.scope == EACH
               ? name->name + (" of partition " + std::to_string(id & PARTITION_MASK))
               : name->name;
}

Event writtenBy(const User& user, std::uint32_t id, const std::string& content) {
    switch (id) {
        case ITEM_LED:
            return {EventCode::LED_CHANGED, user.name, parseTexts(content)->front()};
        case ITEM_MAINTENANCE_MODE:
            return {EventCode::MAINTENANCE_CHANGED, user.name, Maintenance::describe(content)};
        default:
            return {EventCode::SETTINGS_CHANGED, user.name, describe(id)};
    }
}

}  // namespace

bool Items::isPublic(std::uint32_t id) {
    return (findRule(id).readers & PUBLIC) != 0;
}

bool Items::holdsPassword(std::uint32_t id) {
    return id == ITEM_OWN_PASSWORD || id == ITEM_USER_ADD || id == ITEM_USER_EDIT;
}

std::string Items::read(std::uint32_t id, const Caller* caller) {
    const Rule& rule = requireRule(id);
    requireAmong(rule.readers, id, caller);
    if ((rule.writers & ASKED) != 0) {
        throw boardError(ERROR_BAD_REQUEST, "the item answers a question", id);
    }
    const Handler* const handler = findEntry(HANDLERS, rule.id);
    if (handler != nullptr && handler->read != nullptr) {
        return handler->read({m_parts, id, caller, "", ""});
    }
    if (&rule == &OTHERS && !m_parts.state.readItem(id)) {
        throw boardError(ERROR_NO_SUCH_ITEM, "the item was never set", id);
    }
    return readValid(m_parts.state, id, rule.isValid);
}

void Items::requireAmong(unsigned int who, std::uint32_t id, const Caller* caller) {
    if (!isAmong(who, caller, findRule(id), id, m_parts.state)) {
        throw boardError(ERROR_NOT_AUTHORISED, "this user may not use the item", id);
    }
}

void Items::checkWrite(std::uint32_t id, const std::string& content, const Caller& caller) {
    const Rule& rule = requireRule(id);
    requireAmong(rule.writers, id, &caller);
    requireFit(rule, id, content);
}

void Items::write(std::uint32_t id, const std::string& content, Caller& caller,
                  const std::string& passwordHash) {
    checkWrite(id, content, caller);
    const Handler* const handler = findEntry(HANDLERS, findRule(id).id);
    if (handler != nullptr) {
        handler->write({m_parts, id, &caller, content, passwordHash});
    } else {
        store(id, content, caller.user);
    }
    caller.user = m_parts.state.findUser(caller.user.name).value_or(caller.user);
}

// What changes nothing leaves no event: it could push out those that tell of something.
void Items::store(std::uint32_t id, const std::string& content, const User& user) {
    if (m_parts.state.readItem(id) != content) {
        m_parts.state.writeItem(id, content, writtenBy(user, id, content));
    }
}

std::string Items::exchange(std::uint32_t id, const std::string& content, Caller& caller) {
    const Rule& rule = requireRule(id);
    requireAmong(rule.readers, id, &caller);
    if ((rule.writers & ASKED) != 0) {
        requireFit(rule, id, content);
        return findEntry(HANDLERS, rule.id)->read({m_parts, id, &caller, content, ""});
    }
    write(id, content, caller);
    return read(id, &caller);
}

}  // namespace ORVLib::Board
