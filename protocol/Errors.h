#pragma once

#include <cstdint>

/// The responses that refuse a request.
namespace ORVLib::Protocol {

/// The message type of a response that carries a serialised PException in place of an answer.
constexpr std::uint32_t TYPE_ERROR = 0x87ff0001;

/// The exception's detail.
enum ErrorDetail : unsigned int {
    ERROR_NO_SESSION = 1031,  ///< the session has ended or never existed
    ERROR_LOGIN_REFUSED = 1281,
    ERROR_NOT_AUTHORISED = 1282,
    ERROR_NO_SUCH_ITEM = 1283,
    ERROR_BAD_REQUEST = 1284,
    ERROR_BUSY = 1285,
    ERROR_EXISTS = 1286,
    ERROR_FULL = 1287,
    ERROR_NOT_FOUND = 1288,
    ERROR_LAST_ADMINISTRATOR = 1289,
    ERROR_DAMAGED = 1290,
    ERROR_NOT_REACHED = 1291,   ///< the user did not reach the board by its new network settings
    ERROR_BOARD_FAILURE = 1792  ///< the board itself failed; the action code says how
};

/// The exception's action code.
enum ErrorAction : unsigned char {
    ACTION_NONE = 0,
    ACTION_STATE = 1,     ///< the board's state cannot be used
    ACTION_INJECTED = 2,  ///< a fault was asked for
    ACTION_STAGE = 3      ///< a firmware image cannot be stored
};

}  // namespace ORVLib::Protocol
