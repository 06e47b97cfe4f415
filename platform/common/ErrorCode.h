#pragma once

/// The error codes of the library and of the host's IPC.
///
/// An exception carries an error code as its detail. The error page chooses its message by the
/// code, mostly by the code's second byte, and prints the code in hexadecimal. Codes of the daemon
/// that the library treats like any other are not listed.
namespace ORVLib::ErrorCode {

// Errors with different reasons share a code where the user gets the same message for both.
enum Number : int {
    OPERATION_IN_PROGRESS = 0x1f6,  ///< 502: the daemon is busy with another operation

    CANNOT_CONNECT = 0x401,     ///< 1025: the daemon cannot be reached
    CANNOT_SERIALIZE = 0x401,   ///< 1025: the object to send has no serialised form
    CONNECTION_BROKEN = 0x402,  ///< 1026: the connection broke, or its bytes are not a message
    OUT_OF_PROTOCOL = 0x402,    ///< 1026: a message of another type, or a missing step or payload
    NO_SKELETON = 0x402,        ///< 1026: the skeleton of the page cannot be read
    INTERNAL_ERROR = 0x403,     ///< 1027: the page threw something else than a PException
    WRONG_SIZE = 0x404,         ///< 1028: an answer of another size than expected
    TIME_LIMIT_PASSED = 0x405,  ///< 1029: the daemon did not answer in time
    BODY_UNREADABLE = 0x413,    ///< 1043: the body of the request cannot be read to its end

    BUFFER_TOO_SMALL = 0x601,  ///< 1537: the buffer is too small for the serialised object

    BOARD_FAILURE = 0x700,  ///< 1792: the board failed; the action code tells the operation
};

// The second byte of a code.
constexpr int FAMILY_MASK = 0xff00;
constexpr int OPERATION_FAMILY = 0x100;
constexpr int SYSTEM_FAMILY = 0x400;
constexpr int BOARD_FAMILY = BOARD_FAILURE;
constexpr int ACTION_FAMILY = 0xd00;

/// The code to show for `code`. For a failure of the board that is ACTION_FAMILY with the action
/// code in the low byte, so that the user can report the operation that failed.
constexpr int shown(int code, unsigned char actionCode) {
    return code == BOARD_FAILURE ? ACTION_FAMILY | actionCode : code;
}

}  // namespace ORVLib::ErrorCode
