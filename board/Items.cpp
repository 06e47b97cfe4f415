#include "Items.h"

#include <algorithm>
#include <cstdio>

#include "BoardClock.h"
#include "Contents.h"
#include "EventLog.h"
#include "Maintenance.h"
#include "Network.h"
#include "OwnSettings.h"
#include "Power.h"
#include "Protocol.h"
#include "Users.h"
#include "orv/GeneralPurposePacket.h"

namespace ORVLib::Board {

namespace {

// Who may use an item. P is an administrator of the item's partition, or of any partition where
// the item has none.
enum Who : unsigned int {
    NOBODY = 0,
    A = 1,           // system administrators
    P = 2,           // partition administrators
    S = 4,           // technical staff
    O = 8,           // operators
    M = 16,          // technical staff while the maintenance mode gives them the power
    USERS = 32,      // whoever is logged in
    EVERYBODY = 64,  // without a session too
    ASKED = 128      // nobody writes; what readers exchange is a question
};

// Items that the board has once, and that each partition has.
enum Scope { ONE, EACH };

struct Rule {
    std::uint32_t id;
    Scope scope;
    unsigned int readers;
    unsigned int writers;
    bool (*isFit)(const std::string& content);  // what is written, and what is stored as written
    const char* name;                           // in the event log
};

// clang-format off
constexpr Rule RULES[] = {
    {ITEM_DEFAULT_LANGUAGE,       ONE,  EVERYBODY, A,         isLanguage,        "default language"},
    {PROCEDURE_LOGIN,             ONE,  NOBODY,    NOBODY,    isAnything,        ""},
    {ITEM_STATUS,                 ONE,  USERS,     NOBODY,    isAnything,        ""},
    {PROCEDURE_LOGOUT,            ONE,  NOBODY,    NOBODY,    isAnything,        ""},
    {PROCEDURE_CHECK_SESSION,     ONE,  NOBODY,    NOBODY,    isAnything,        ""},
    {ITEM_PRODUCT,                ONE,  USERS,     NOBODY,    isProduct,         ""},
    {ITEM_SYSTEM_NAMES,           ONE,  USERS,     A,         isSystemNames,     "system names"},
    {ITEM_SYSTEM_POWER,           ONE,  USERS,     A|M,       isPowerOperation,  ""},
    {ITEM_LED,                    ONE,  USERS,     USERS,     isLed,             ""},
    {PROCEDURE_GET_USER_INFO,     ONE,  NOBODY,    NOBODY,    isAnything,        ""},
    {ITEM_OWN_LANGUAGE,           ONE,  USERS,     USERS,     isLanguage,        ""},
    {ITEM_OWN_REFRESH_INTERVAL,   ONE,  USERS,     USERS,     isInterval,        ""},
    {ITEM_OWN_PASSWORD,           ONE,  NOBODY,    USERS,     isPasswordChange,  ""},
    {ITEM_PARTITIONS,             ONE,  USERS,     NOBODY,    isAnything,        ""},
    {ITEM_USERS,                  ONE,  A,         NOBODY,    isAnything,        ""},
    {ITEM_USER_ADD,               ONE,  NOBODY,    A,         isNewUser,         ""},
    {ITEM_USER_EDIT,              ONE,  NOBODY,    A,         isChangedUser,     ""},
    {ITEM_USER_REMOVE,            ONE,  NOBODY,    A,         isUserName,        ""},
    {ITEM_SESSIONS,               ONE,  USERS,     NOBODY,    isAnything,        ""},
    {ITEM_CLOCK,                  ONE,  USERS,     A,         isClock,           ""},
    {ITEM_ADDRESSES,              ONE,  USERS,     A,         isAddresses,       "network addresses"},
    {ITEM_SERVICES,               ONE,  USERS,     A,         isServices,        "network services"},
    {ITEM_TRAPS,                  ONE,  USERS,     A,         isTraps,           "trap receivers"},
    {ITEM_ACL,                    ONE,  A,         NOBODY,    isAccessList,      ""},
    {ITEM_ACL_ADD,                ONE,  NOBODY,    A,         isAccessRow,       ""},
    {ITEM_ACL_REMOVE,             ONE,  NOBODY,    A,         isAccessRow,       ""},
    {ITEM_MAIL,                   ONE,  A,         A,         isMail,            "mail notification"},
    {ITEM_HTTPS_PORT,             ONE,  EVERYBODY, A,         isPort,            ""},
    {ITEM_EVENTS,                 ONE,  USERS,     ASKED,     isEventQuery,      ""},
    {ITEM_OWN_EVENT_FILTER,       ONE,  USERS,     USERS,     isEventFilter,     ""},
    {ITEM_MAINTENANCE_MODE,       ONE,  USERS,     A|S,       isMaintenanceMode, ""},
    {ITEM_MAINTENANCE_PERMISSION, ONE,  USERS,     A,         isPacket,          "maintenance permission"},
    {ITEM_PARTITION_POWER,        EACH, USERS,     A|P|O|M,   isPowerOperation,  ""},
    {ITEM_PARTITION_SCHEDULE,     EACH, USERS,     A|P|O,     isSchedule,        "power schedule"},
    {ITEM_PARTITION_BOOT,         EACH, USERS,     A|P|O,     isBoot,            "boot settings"},
};
// clang-format on

constexpr Rule OTHERS = {0, ONE, USERS, A, isAnything, nullptr};

// Items that are more than stored bytes.
struct Handler {
    std::uint32_t id;
    std::string (*read)(const Call& call);
    void (*write)(const Call& call);
};

// clang-format off
constexpr Handler HANDLERS[] = {
    {ITEM_STATUS,               Power::readStatus,                nullptr},
    {ITEM_SYSTEM_POWER,         Power::readSystem,                Power::operateSystem},
    {ITEM_OWN_LANGUAGE,         OwnSettings::readLanguage,        OwnSettings::writeLanguage},
    {ITEM_OWN_REFRESH_INTERVAL, OwnSettings::readRefreshInterval, OwnSettings::writeRefreshInterval},
    {ITEM_OWN_PASSWORD,         nullptr,                          OwnSettings::writePassword},
    {ITEM_PARTITIONS,           Power::listPartitions,            nullptr},
    {ITEM_USERS,                Users::list,                      nullptr},
    {ITEM_USER_ADD,             nullptr,                          Users::add},
    {ITEM_USER_EDIT,            nullptr,                          Users::edit},
    {ITEM_USER_REMOVE,          nullptr,                          Users::remove},
    {ITEM_SESSIONS,             Users::listSessions,              nullptr},
    {ITEM_CLOCK,                BoardClock::read,                    BoardClock::write},
    {ITEM_ACL_ADD,              nullptr,                          Network::addAccess},
    {ITEM_ACL_REMOVE,           nullptr,                          Network::removeAccess},
    {ITEM_HTTPS_PORT,           Network::readHttpsPort,           Network::writeHttpsPort},
    {ITEM_EVENTS,               EventLog::answer,                 nullptr},
    {ITEM_OWN_EVENT_FILTER,     EventLog::readFilter,             EventLog::writeFilter},
    {ITEM_PARTITION_POWER,      Power::readPartition,             Power::operatePartition},
};
// clang-format on

// Records of a fresh board, their texts between bars.
struct Initial {
    std::uint32_t id;
    Scope scope;
    const char* texts;
};

constexpr Initial INITIAL[] = {
    {ITEM_PRODUCT, ONE, "Sample Server|SN20417-0093|1.0.0"},
    {ITEM_SYSTEM_NAMES, ONE, "server-1|AT-1001|Room 2, rack 4|"},
    {ITEM_LED, ONE, "off"},
    {ITEM_CLOCK, ONE, "0|+00:00|manual||"},
    {ITEM_ADDRESSES, ONE, "board|192.0.2.10|24|192.0.2.1|192.0.2.53|"},
    {ITEM_SERVICES, ONE, "1|80|1|443|1|22|0|23"},
    {ITEM_TRAPS, ONE, "0||public|0|||0||"},
    {ITEM_ACL, ONE, ""},
    {ITEM_MAIL, ONE, "0||25|||"},
    {ITEM_PARTITION_POWER, EACH, "on"},
    {ITEM_PARTITION_POWER + PARTITION_COUNT - 1, ONE, "off"},
    {ITEM_PARTITION_SCHEDULE, EACH, "0|2025-01-01|2037-12-31|1111100|07:00|19:00"},
    {ITEM_PARTITION_BOOT, EACH, "disk|dvd|network|3|0"},
};

constexpr std::uint32_t ENGLISH = 1;

std::uint32_t withoutPartition(std::uint32_t id) {
    return id & ~PARTITION_MASK;
}

bool isOf(const Rule& rule, std::uint32_t id) {
    return rule.id == (rule.scope == EACH ? withoutPartition(id) : id);
}

const Rule& findRule(std::uint32_t id) {
    const auto* const found = std::find_if(std::begin(RULES), std::end(RULES),
                                           [id](const Rule& rule) { return isOf(rule, id); });
    return found != std::end(RULES) ? *found : OTHERS;
}

const Handler* findHandler(const Rule& rule) {
    const auto* const found =
        std::find_if(std::begin(HANDLERS), std::end(HANDLERS),
                     [&rule](const Handler& handler) { return handler.id == rule.id; });
    return found != std::end(HANDLERS) ? found : nullptr;
}

const Rule& requireRule(std::uint32_t id) {
    const Rule& rule = findRule(id);
    if (rule.scope == EACH && (id & PARTITION_MASK) >= PARTITION_COUNT) {
        throw boardError(ERROR_NO_SUCH_ITEM, "there is no such partition", id);
    }
    return rule;
}

// What a user is, for this item.
unsigned int rolesOf(const Authority& authority, const Rule& rule, std::uint32_t id) {
    const std::uint32_t partitions =
        rule.scope == EACH ? 1U << (id & PARTITION_MASK) : ~std::uint32_t{0};
    const auto has = [&authority](std::uint32_t role) { return (authority.roles & role) != 0; };
    return USERS | EVERYBODY | (has(ROLE_SYSTEM_ADMINISTRATOR) ? A : 0U) |
           ((authority.partitions & partitions) != 0 ? P : 0U) |
           (has(ROLE_TECHNICAL_STAFF) ? S : 0U) | (has(ROLE_OPERATOR) ? O : 0U);
}

bool isAmong(unsigned int who, const Caller* caller, const Rule& rule, std::uint32_t id,
             BoardState& state) {
    if (caller == nullptr) {
        return (who & EVERYBODY) != 0;
    }
    const unsigned int roles = rolesOf(caller->user.authority, rule, id);
    return (roles & who) != 0 ||
           ((who & M) != 0 && (roles & S) != 0 && Maintenance::allowsPower(state));
}

std::string describe(std::uint32_t id, const Rule& rule) {
    if (rule.name == nullptr) {
        char text[sizeof "item 0x00000000"];
        std::snprintf(text, sizeof text, "item 0x%08x", id);
        return text;
    }
    return rule.scope == EACH ? rule.name + (" of partition " + std::to_string(id & PARTITION_MASK))
                              : rule.name;
}

Event writtenBy(const User& user, std::uint32_t id, const std::string& content) {
    switch (id) {
        case ITEM_LED:
            return {EventCode::LED_CHANGED, user.name, parseTexts(content)->front()};
        case ITEM_MAINTENANCE_MODE:
            return {EventCode::MAINTENANCE_CHANGED, user.name, Maintenance::describe(content)};
        default:
            return {EventCode::SETTINGS_CHANGED, user.name, describe(id, findRule(id))};
    }
}

std::string splitAtBars(std::string texts) {
    std::replace(texts.begin(), texts.end(), '|', '\0');
    return texts + '\0';
}

std::string noMaintenancePermission() {
    ORVUi::GeneralPurposePacket packet;
    packet.addComponent(std::make_unique<ORVUi::PrimitiveTypeWrapper<long>>());
    std::string bytes(packet.getSerializedSize(), '\0');
    packet.getSerialized(reinterpret_cast<unsigned char*>(bytes.data()),
                         static_cast<unsigned int>(bytes.size()));
    return bytes;
}

}  // namespace

std::string readFit(BoardState& state, std::uint32_t id, bool (*isFit)(const std::string&)) {
    const auto content = state.readItem(id);
    if (!content || !isFit(*content)) {
        throw DatabaseError("an item is missing or damaged", SQLITE_CORRUPT);
    }
    return *content;
}

Contents Items::getInitialContents() {
    Contents contents;
    contents[ITEM_DEFAULT_LANGUAGE] = formatNumber(ENGLISH);
    contents[ITEM_MAINTENANCE_MODE] = std::string(MaintenanceMode::SIZE, '\0');
    contents[ITEM_MAINTENANCE_PERMISSION] = noMaintenancePermission();
    for (const Initial& initial : INITIAL) {
        const std::uint32_t count = initial.scope == EACH ? PARTITION_COUNT : 1;
        for (std::uint32_t n = 0; n < count; ++n) {
            contents[initial.id + n] = splitAtBars(initial.texts);
        }
    }
    return contents;
}

bool Items::isPublic(std::uint32_t id) {
    return (findRule(id).readers & EVERYBODY) != 0;
}

bool Items::holdsPassword(std::uint32_t id) {
    return id == ITEM_OWN_PASSWORD || id == ITEM_USER_ADD || id == ITEM_USER_EDIT;
}

std::string Items::read(std::uint32_t id, const Caller* caller) {
    const Rule& rule = requireRule(id);
    requireAmong(rule.readers, id, caller);
    const Handler* const handler = findHandler(rule);
    if (handler != nullptr && handler->read != nullptr) {
        return handler->read({m_state, m_sessions, id, caller, "", ""});
    }
    const auto content = m_state.readItem(id);
    if (!content) {
        throw boardError(ERROR_NO_SUCH_ITEM, "the item was never set", id);
    }
    if (!rule.isFit(*content)) {
        throw DatabaseError("an item is damaged", SQLITE_CORRUPT);
    }
    return *content;
}

void Items::requireAmong(unsigned int who, std::uint32_t id, const Caller* caller) {
    if (!isAmong(who, caller, findRule(id), id, m_state)) {
        throw boardError(ERROR_NOT_AUTHORISED, "this user may not use the item", id);
    }
}

void Items::checkWrite(std::uint32_t id, const std::string& content, const Caller& caller) {
    const Rule& rule = requireRule(id);
    requireAmong(rule.writers, id, &caller);
    if (!rule.isFit(content)) {
        throw boardError(ERROR_BAD_REQUEST, "the payload does not fit the item", id);
    }
}

void Items::write(std::uint32_t id, const std::string& content, const Caller& caller,
                  const std::string& passwordHash) {
    checkWrite(id, content, caller);
    const Handler* const handler = findHandler(findRule(id));
    if (handler != nullptr) {
        handler->write({m_state, m_sessions, id, &caller, content, passwordHash});
    } else {
        m_state.writeItem(id, content, writtenBy(caller.user, id, content));
    }
}

std::string Items::exchange(std::uint32_t id, const std::string& content, const Caller& caller) {
    const Rule& rule = requireRule(id);
    requireAmong(rule.readers, id, &caller);
    if ((rule.writers & ASKED) != 0) {
        return findHandler(rule)->read({m_state, m_sessions, id, &caller, content, ""});
    }
    write(id, content, caller);
    return read(id, &caller);
}

}  // namespace ORVLib::Board
