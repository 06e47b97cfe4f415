#pragma once

// Numbers of the protocol between the library and the back-end daemon.
namespace ORVLib::Gui {

/// Procedure IDs of the requester's own operations.
enum Procedure : unsigned int {
    PROCEDURE_GET_LANGUAGE = 0x02010001,
    PROCEDURE_LOGIN = 0x02010002,
    PROCEDURE_LOGOUT = 0x02010004,
    PROCEDURE_CHECK_SESSION = 0x02010005,
    PROCEDURE_GET_USER_INFO = 0x02010025
};

/// IDs of the items that the library itself reads.
enum Item : unsigned int {
    ITEM_HTTPS_PORT = 0x02010073,        // 32-bit signed number
    ITEM_MAINTENANCE_MODE = 0x020100b4,  // ORV_MAINTENANCE_MODE
    ITEM_MAINTENANCE_POWER = 0x020100d1  // GeneralPurposePacket: may technical staff use power
};

/// Bits that are added to an item's ID to write or exchange it. The ID itself reads the item, even
/// when content is sent with it.
constexpr unsigned int ITEM_WRITE = 0x8000;     // setInfo()
constexpr unsigned int ITEM_EXCHANGE = 0x4000;  // getInfo() and callTransaction() with `in`

/// Message type of a response that carries an exception.
constexpr unsigned int ERROR_RESPONSE = 0x87ff0001;

/// Exception details that a page has to distinguish.
enum ErrorNumber : unsigned int { ERROR_SESSION_INVALID = 1031 };

}  // namespace ORVLib::Gui
