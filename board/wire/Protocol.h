#pragma once

#include <cstddef>
#include <cstdint>

#include "orv/PException.h"

/// Numbers that pages and the board agree on.
namespace ORVLib::Board {

// Procedures. Every other ID of the same family is an information item.
constexpr std::uint32_t PROCEDURE_GET_LANGUAGE = 0x02010001;
constexpr std::uint32_t PROCEDURE_LOGIN = 0x02010002;
constexpr std::uint32_t PROCEDURE_LOGOUT = 0x02010004;
constexpr std::uint32_t PROCEDURE_CHECK_SESSION = 0x02010005;
constexpr std::uint32_t PROCEDURE_GET_USER_INFO = 0x02010025;

// Items: 0x0201 and 14 bits of number. The two bits between say what is done with the item, and
// with that whether a payload follows the telegram.
constexpr std::uint32_t FAMILY_MASK = 0xffff0000;
constexpr std::uint32_t FAMILY = 0x02010000;
constexpr std::uint32_t ACCESS_MASK = 0x0000c000;
constexpr std::uint32_t ACCESS_READ = 0x00000000;
constexpr std::uint32_t ACCESS_EXCHANGE = 0x00004000;
constexpr std::uint32_t ACCESS_WRITE = 0x00008000;

constexpr std::uint32_t ITEM_DEFAULT_LANGUAGE = PROCEDURE_GET_LANGUAGE;
constexpr std::uint32_t ITEM_STATUS = 0x02010003;
constexpr std::uint32_t ITEM_PRODUCT = 0x02010007;
constexpr std::uint32_t ITEM_SYSTEM_NAMES = 0x02010008;
constexpr std::uint32_t ITEM_SYSTEM_POWER = 0x0201000a;
constexpr std::uint32_t ITEM_LED = 0x0201000b;
constexpr std::uint32_t ITEM_OWN_LANGUAGE = 0x02010026;
constexpr std::uint32_t ITEM_OWN_REFRESH_INTERVAL = 0x02010027;
constexpr std::uint32_t ITEM_OWN_PASSWORD = 0x02010028;
constexpr std::uint32_t ITEM_OWN_DEVICE = 0x02010029;
constexpr std::uint32_t ITEM_PARTITIONS = 0x02010030;
constexpr std::uint32_t ITEM_USERS = 0x0201003c;
constexpr std::uint32_t ITEM_USER_ADD = 0x0201003d;
constexpr std::uint32_t ITEM_USER_EDIT = 0x0201003e;
constexpr std::uint32_t ITEM_USER_REMOVE = 0x0201003f;
constexpr std::uint32_t ITEM_SESSIONS = 0x02010040;
constexpr std::uint32_t ITEM_CLOCK = 0x02010046;
constexpr std::uint32_t ITEM_ADDRESSES = 0x02010048;
constexpr std::uint32_t ITEM_SERVICES = 0x0201004a;
constexpr std::uint32_t ITEM_TRAPS = 0x0201004d;
constexpr std::uint32_t ITEM_ACL = 0x02010058;
constexpr std::uint32_t ITEM_ACL_ADD = 0x02010059;
constexpr std::uint32_t ITEM_ACL_REMOVE = 0x0201005a;
constexpr std::uint32_t ITEM_MAIL = 0x0201005c;
constexpr std::uint32_t ITEM_PROGRESS = 0x0201005f;
constexpr std::uint32_t ITEM_FIRMWARE_STAGE = 0x02010064;
constexpr std::uint32_t ITEM_FIRMWARE_STAGED = 0x02010065;
constexpr std::uint32_t ITEM_FIRMWARE_START = 0x02010066;
constexpr std::uint32_t ITEM_FIRMWARE_DROP = 0x02010067;
constexpr std::uint32_t ITEM_BACKUP = 0x02010068;
constexpr std::uint32_t ITEM_HTTPS_PORT = 0x02010073;
constexpr std::uint32_t ITEM_EVENTS = 0x02010099;
constexpr std::uint32_t ITEM_OWN_EVENT_FILTER = 0x0201009a;
constexpr std::uint32_t ITEM_MAINTENANCE_MODE = 0x020100b4;
constexpr std::uint32_t ITEM_MAINTENANCE_PERMISSION = 0x020100d1;

// Items of a partition: the partition's number is added.
constexpr std::uint32_t ITEM_PARTITION_POWER = 0x02010300;
constexpr std::uint32_t ITEM_PARTITION_SCHEDULE = 0x02010310;
constexpr std::uint32_t ITEM_PARTITION_BOOT = 0x02010320;
constexpr std::uint32_t PARTITION_MASK = 0x0000000f;

/// Partitions that the board has, from 0.
constexpr std::uint32_t PARTITION_COUNT = 4;

constexpr std::uint32_t TYPE_ERROR = 0x87ff0001;

/// The longest payload a page can announce, and take.
constexpr int MAX_REQUEST_SIZE = 65535;
constexpr std::size_t MAX_CONTENT_SIZE = MAX_REQUEST_SIZE;

// Roles of a user.
constexpr std::uint32_t ROLE_SYSTEM_ADMINISTRATOR = 1U << 31;
constexpr std::uint32_t ROLE_TECHNICAL_STAFF = 1U << 30;
constexpr std::uint32_t ROLE_GUEST = 1U << 29;
constexpr std::uint32_t ROLE_OPERATOR = 1U << 28;

/// The content that changes a password: the present one and the new one, each ended by a NUL.
struct PasswordChange {
    static constexpr std::size_t OLD_OFFSET = 0;
    static constexpr std::size_t NEW_OFFSET = 36;
    static constexpr std::size_t SIZE = 72;
};

/// Bytes of the maintenance mode; Maintenance says what they mean.
constexpr std::size_t MAINTENANCE_MODE_SIZE = 34;

// Exception details of error responses.
constexpr int ERROR_NO_SESSION = 1031;
constexpr int ERROR_LOGIN_REFUSED = 1281;
constexpr int ERROR_NOT_AUTHORISED = 1282;
constexpr int ERROR_NO_SUCH_ITEM = 1283;
constexpr int ERROR_BAD_REQUEST = 1284;
constexpr int ERROR_BUSY = 1285;
constexpr int ERROR_EXISTS = 1286;
constexpr int ERROR_FULL = 1287;
constexpr int ERROR_NOT_FOUND = 1288;
constexpr int ERROR_LAST_ADMINISTRATOR = 1289;
constexpr int ERROR_DAMAGED = 1290;

/// The board itself failed; the action code says at what.
constexpr int ERROR_BOARD_FAILURE = 1792;
constexpr int ACTION_NONE = 0;
constexpr int ACTION_STATE = 1;
constexpr int ACTION_INJECTED = 2;
constexpr int ACTION_STAGE = 3;

/// An error response: what is wrong and the number it is wrong with.
inline PException boardError(int detail, const char* what, std::uint32_t number = 0,
                             int actionCode = ACTION_NONE) {
    const auto argument = static_cast<int>(number);
    return {2, 1, 1, actionCode, detail, 20034, what, argument, 0, 0, 0, 0, 0, 0};
}

}  // namespace ORVLib::Board
