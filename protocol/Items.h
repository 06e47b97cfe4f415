#pragma once

#include <cstdint>

/// The requests that the board answers, by the message type that they are sent under.
namespace ORVLib::Protocol {

/// Operations with a payload of their own. Every other ID of the family is an item.
enum Procedure : std::uint32_t {
    PROCEDURE_GET_LANGUAGE = 0x02010001,
    PROCEDURE_LOGIN = 0x02010002,
    PROCEDURE_LOGOUT = 0x02010004,
    PROCEDURE_CHECK_SESSION = 0x02010005,
    PROCEDURE_GET_USER_INFO = 0x02010025
};

/// Items are records unless the comment says otherwise.
enum Item : std::uint32_t {
    ITEM_DEFAULT_LANGUAGE = PROCEDURE_GET_LANGUAGE,  ///< 32 bits
    ITEM_STATUS = 0x02010003,
    ITEM_PRODUCT = 0x02010007,
    ITEM_SYSTEM_NAMES = 0x02010008,
    ITEM_SYSTEM_POWER = 0x0201000a,
    ITEM_LED = 0x0201000b,
    ITEM_OWN_LANGUAGE = 0x02010026,          ///< 32 bits
    ITEM_OWN_REFRESH_INTERVAL = 0x02010027,  ///< seconds, 32 bits
    ITEM_OWN_PASSWORD = 0x02010028,          ///< a PasswordChange
    ITEM_OWN_DEVICE = 0x02010029,            ///< a query: ID of the browser, or an empty text
    ITEM_OWN_SESSION = 0x0201002a,           ///< seconds left, seconds of an unused session
    ITEM_OWN_NOTE = 0x0201002b,              ///< a query: a NoteQuery
    ITEM_PARTITIONS = 0x02010030,
    ITEM_USERS = 0x0201003c,
    ITEM_USER_ADD = 0x0201003d,
    ITEM_USER_EDIT = 0x0201003e,
    ITEM_USER_REMOVE = 0x0201003f,
    ITEM_SESSIONS = 0x02010040,
    ITEM_CLOCK = 0x02010046,
    ITEM_ADDRESSES = 0x02010048,
    ITEM_SERVICES = 0x0201004a,
    ITEM_TRAPS = 0x0201004d,
    ITEM_PROBATION = 0x0201004e,
    ITEM_PROBATION_CONFIRM = 0x0201004f,
    ITEM_PROBATION_UNDO = 0x02010050,
    ITEM_PROBATION_TIME = 0x02010051,  ///< seconds, 32 bits
    ITEM_ACCESS_LIST = 0x02010058,
    ITEM_ACCESS_LIST_ADD = 0x02010059,
    ITEM_ACCESS_LIST_REMOVE = 0x0201005a,
    ITEM_MAIL = 0x0201005c,
    ITEM_PROGRESS = 0x0201005f,
    ITEM_FIRMWARE_STAGE = 0x02010064,  ///< a FirmwarePiece
    ITEM_FIRMWARE_STAGED = 0x02010065,
    ITEM_FIRMWARE_START = 0x02010066,
    ITEM_FIRMWARE_DROP = 0x02010067,
    ITEM_BACKUP = 0x02010068,      ///< a text file
    ITEM_HTTPS_PORT = 0x02010073,  ///< 32 bits
    ITEM_EVENTS = 0x02010099,      ///< a query
    ITEM_OWN_EVENT_FILTER = 0x0201009a,
    ITEM_MAINTENANCE_MODE = 0x020100b4,        ///< a MaintenanceMode
    ITEM_MAINTENANCE_PERMISSION = 0x020100d1,  ///< a GeneralPurposePacket

    // Items of a partition: the partition's number is added.
    ITEM_PARTITION_POWER = 0x02010300,
    ITEM_PARTITION_SCHEDULE = 0x02010310,
    ITEM_PARTITION_BOOT = 0x02010320
};

/// The high half of every ID.
constexpr std::uint32_t FAMILY_MASK = 0xffff0000;
constexpr std::uint32_t FAMILY = 0x02010000;

/// Two bits of the message type select the access to an item, and with it whether a payload follows
/// the telegram. To write or exchange an item, add the bits to its ID.
constexpr std::uint32_t ACCESS_MASK = 0x0000c000;
constexpr std::uint32_t ACCESS_READ = 0x00000000;
constexpr std::uint32_t ACCESS_EXCHANGE = 0x00004000;
constexpr std::uint32_t ACCESS_WRITE = 0x00008000;

/// The bits of a partition's number in the ID of an item of a partition.
constexpr std::uint32_t PARTITION_MASK = 0x0000000f;

/// Partitions that a board can have.
constexpr int MAX_PARTITIONS = 16;

}  // namespace ORVLib::Protocol
