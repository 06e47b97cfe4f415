#include <algorithm>
#include <cstddef>
#include <iterator>

#include "item/Backup.h"
#include "item/BoardClock.h"
#include "item/Device.h"
#include "item/EventLog.h"
#include "item/Firmware.h"
#include "item/Item.h"
#include "item/ItemValidators.h"
#include "item/Maintenance.h"
#include "item/Network.h"
#include "item/Notes.h"
#include "item/OwnSettings.h"
#include "item/Power.h"
#include "item/Stored.h"
#include "item/Users.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

constexpr unsigned int A = SYSTEM_ADMINISTRATORS;
constexpr unsigned int P = PARTITION_ADMINISTRATORS;
constexpr unsigned int S = TECHNICAL_STAFF;
constexpr unsigned int O = OPERATORS;
constexpr unsigned int M = MAINTENANCE_STAFF;
constexpr unsigned int USERS = ALL_USERS;
constexpr unsigned int PUBLIC = EVERYBODY;

constexpr Scope BOARD = Scope::BOARD;
constexpr Scope EACH = Scope::PARTITION;

constexpr Kind CONTENT = Kind::CONTENT;
constexpr Kind PASSWORD = Kind::PASSWORD;
constexpr Kind QUERY = Kind::QUERY;

constexpr std::nullptr_t NONE = nullptr;

// In the order of the IDs. The rows of procedures refuse every use of a procedure's ID as an item.
// clang-format off
constexpr Item ITEMS[] = {
    // ID                         scope  kind      readers writers   validator, read, write, name
    {ITEM_DEFAULT_LANGUAGE,       BOARD, CONTENT,  PUBLIC, A,
     isLanguage, Stored::read, Stored::write, "default language"},
    {PROCEDURE_LOGIN,             BOARD, CONTENT,  NOBODY, NOBODY},
    {ITEM_STATUS,                 BOARD, CONTENT,  USERS,  NOBODY,   NONE, Power::readStatus},
    {PROCEDURE_LOGOUT,            BOARD, CONTENT,  NOBODY, NOBODY},
    {PROCEDURE_CHECK_SESSION,     BOARD, CONTENT,  NOBODY, NOBODY},
    {ITEM_PRODUCT,                BOARD, CONTENT,  USERS,  NOBODY,   isProduct, Stored::read},
    {ITEM_SYSTEM_NAMES,           BOARD, CONTENT,  USERS,  A,
     isSystemNames, Stored::read, Stored::write, "system names"},
    {ITEM_SYSTEM_POWER,           BOARD, CONTENT,  USERS,  A|M,
     Power::isOperation, Power::readSystem, Power::operateSystem},
    {ITEM_LED,                    BOARD, CONTENT,  USERS,  USERS,
     isLed, Stored::read, Stored::writeLed},
    {PROCEDURE_GET_USER_INFO,     BOARD, CONTENT,  NOBODY, NOBODY},
    {ITEM_OWN_LANGUAGE,           BOARD, CONTENT,  USERS,  USERS,
     isOwnLanguage, OwnSettings::readLanguage, OwnSettings::writeLanguage},
    {ITEM_OWN_REFRESH_INTERVAL,   BOARD, CONTENT,  USERS,  USERS,
     isInterval, OwnSettings::readInterval, OwnSettings::writeInterval},
    {ITEM_OWN_PASSWORD,           BOARD, PASSWORD, NOBODY, USERS,
     isPasswordChange, NONE, OwnSettings::writePassword},
    {ITEM_OWN_DEVICE,             BOARD, QUERY,    USERS,  NOBODY,
     Device::isQuestion, Device::answer},
    {ITEM_OWN_SESSION,            BOARD, CONTENT,  USERS,  NOBODY,   NONE, OwnSettings::readSession},
    {ITEM_OWN_NOTE,               BOARD, QUERY,    USERS,  NOBODY,   Notes::isQuery, Notes::answer},
    {ITEM_PARTITIONS,             BOARD, CONTENT,  USERS,  NOBODY,   NONE, Power::listPartitions},
    {ITEM_USERS,                  BOARD, CONTENT,  A,      NOBODY,   NONE, Users::list},
    {ITEM_USER_ADD,               BOARD, PASSWORD, NOBODY, A,
     Users::isNewUser, NONE, Users::add},
    {ITEM_USER_EDIT,              BOARD, PASSWORD, NOBODY, A,
     Users::isChangedUser, NONE, Users::edit},
    {ITEM_USER_REMOVE,            BOARD, CONTENT,  NOBODY, A,
     Users::isUserName, NONE, Users::remove},
    {ITEM_SESSIONS,               BOARD, CONTENT,  USERS,  NOBODY,   NONE, Users::listSessions},
    {ITEM_CLOCK,                  BOARD, CONTENT,  USERS,  A,
     BoardClock::isTime, BoardClock::read, BoardClock::write},
    {ITEM_ADDRESSES,              BOARD, CONTENT,  USERS,  A,
     isAddresses, Stored::read, Network::write, "network addresses"},
    {ITEM_SERVICES,               BOARD, CONTENT,  USERS,  A,
     isServices, Stored::read, Network::write, "network services"},
    {ITEM_TRAPS,                  BOARD, CONTENT,  USERS,  A,
     isTraps, Stored::read, Stored::write, "trap receivers"},
    {ITEM_PROBATION,              BOARD, CONTENT,  A|S,    NOBODY,   NONE, Network::readProbation},
    {ITEM_PROBATION_CONFIRM,      BOARD, CONTENT,  NOBODY, A|S,
     Network::isConfirmation, NONE, Network::confirm},
    {ITEM_PROBATION_UNDO,         BOARD, CONTENT,  NOBODY, A|S,
     Network::isRevision, NONE, Network::undo},
    {ITEM_PROBATION_TIME,         BOARD, CONTENT,  USERS,  A,
     isProbationTime, Network::readProbationTime, Network::writeProbationTime, "network probation"},
    {ITEM_ACCESS_LIST,            BOARD, CONTENT,  A,      NOBODY,   isAccessList, Stored::read},
    {ITEM_ACCESS_LIST_ADD,        BOARD, CONTENT,  NOBODY, A,
     isAccessRow, NONE, Network::addAccess},
    {ITEM_ACCESS_LIST_REMOVE,     BOARD, CONTENT,  NOBODY, A,
     isAccessRow, NONE, Network::removeAccess},
    {ITEM_MAIL,                   BOARD, CONTENT,  A,      A,
     isMail, Stored::read, Stored::write, "mail notification"},
    {ITEM_PROGRESS,               BOARD, CONTENT,  USERS,  NOBODY,   NONE, Firmware::readProgress},
    {ITEM_FIRMWARE_STAGE,         BOARD, CONTENT,  NOBODY, A|S,
     Firmware::isPiece, NONE, Firmware::stage},
    {ITEM_FIRMWARE_STAGED,        BOARD, CONTENT,  A|S,    NOBODY,   NONE, Firmware::readStaged},
    {ITEM_FIRMWARE_START,         BOARD, CONTENT,  NOBODY, A|S,
     Firmware::isDigest, NONE, Firmware::start},
    {ITEM_FIRMWARE_DROP,          BOARD, CONTENT,  NOBODY, A|S,
     Firmware::isDrop, NONE, Firmware::drop},
    {ITEM_BACKUP,                 BOARD, CONTENT,  A|S,    A|S,
     isAnything, Backup::read, Backup::restore},
    {ITEM_HTTPS_PORT,             BOARD, CONTENT,  PUBLIC, A,
     isPort, Network::readHttpsPort, Network::writeHttpsPort},
    {ITEM_EVENTS,                 BOARD, QUERY,    USERS,  NOBODY,
     EventLog::isQuery, EventLog::answer},
    {ITEM_OWN_EVENT_FILTER,       BOARD, CONTENT,  USERS,  USERS,
     EventLog::isFilter, EventLog::readFilter, EventLog::writeFilter},
    {ITEM_MAINTENANCE_MODE,       BOARD, CONTENT,  USERS,  A|S,
     Maintenance::isMode, Stored::read, Maintenance::writeMode},
    {ITEM_MAINTENANCE_PERMISSION, BOARD, CONTENT,  USERS,  A,
     Maintenance::isPermission, Stored::read, Stored::write, "maintenance permission"},
    {ITEM_PARTITION_POWER,        EACH,  CONTENT,  USERS,  A|P|O|M,
     Power::isOperation, Power::readPartition, Power::operatePartition},
    {ITEM_PARTITION_SCHEDULE,     EACH,  CONTENT,  USERS,  A|P|O,
     isSchedule, Stored::read, Stored::write, "power schedule"},
    {ITEM_PARTITION_BOOT,         EACH,  CONTENT,  USERS,  A|P|O,
     isBoot, Stored::read, Stored::write, "boot settings"},
};
// clang-format on

constexpr Item OTHER = {0, BOARD, CONTENT, USERS, A, isAnything, Stored::readOther, Stored::write};

// Under its sanitizers GCC compares no address of a function when it compiles.
#ifndef __SANITIZE_ADDRESS__
constexpr bool isComplete(const Item& item) {
    return (item.readers == NOBODY || item.read != nullptr) &&
           (item.writers == NOBODY || item.write != nullptr) &&
           ((item.writers == NOBODY && item.kind != QUERY) || item.isValid != nullptr);
}

constexpr bool isSound() {
    std::uint32_t last = 0;
    for (const Item& item : ITEMS) {
        if (item.id <= last || !isComplete(item)) {
            return false;
        }
        last = item.id;
    }
    return true;
}

static_assert(isSound(), "an item is listed twice or out of order, or lacks a function");
#endif

}  // namespace

NamedItem findItem(std::uint32_t id) {
    const auto* const found =
        std::find_if(std::begin(ITEMS), std::end(ITEMS), [id](const Item& item) {
            return item.id == (item.scope == EACH ? id & ~PARTITION_MASK : id);
        });
    return {id, found != std::end(ITEMS) ? found : &OTHER};
}

}  // namespace ORVLib::Board
