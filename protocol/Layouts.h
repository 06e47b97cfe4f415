#pragma once

#include <cstddef>

/// Payloads with fields at fixed offsets. Sizes and offsets are in bytes, numbers are big-endian,
/// and texts are filled with NULs, one at least.
namespace ORVLib::Protocol {

/// The longest payload that a request can announce.
constexpr std::size_t MAX_PAYLOAD_SIZE = 0xffff;

/// The header of every request and response.
struct TelegramLayout {
    static constexpr std::size_t PROCESS_ID_OFFSET = 0;
    static constexpr std::size_t SESSION_ID_OFFSET = 4;
    static constexpr std::size_t SESSION_ID_SIZE = 32;
    static constexpr std::size_t LANGUAGE_OFFSET = 39;
    static constexpr std::size_t ROLES_OFFSET = 40;
    static constexpr std::size_t PARTITIONS_OFFSET = 44;
    static constexpr std::size_t SIZE = 48;
};

/// Bytes that a session ID, a user's name and a password can have.
constexpr std::size_t MAX_SESSION_ID_LENGTH = 31;
constexpr std::size_t MAX_NAME_LENGTH = 32;
constexpr std::size_t MAX_PASSWORD_LENGTH = 32;

/// The field of a name or password.
constexpr std::size_t NAME_SIZE = 36;

/// The payload of a log-in. `client` says where the user comes from: an address, or an address, a
/// blank and the ID of a device.
struct LoginRecord {
    static constexpr std::size_t USER_OFFSET = 0;
    static constexpr std::size_t PASSWORD_OFFSET = USER_OFFSET + NAME_SIZE;
    static constexpr std::size_t CLIENT_OFFSET = PASSWORD_OFFSET + NAME_SIZE;
    static constexpr std::size_t CLIENT_SIZE = 132;
    static constexpr std::size_t SIZE = CLIENT_OFFSET + CLIENT_SIZE;
};

/// The session's user: name and refresh interval, 32 bits.
struct UserInformation {
    static constexpr std::size_t NAME_OFFSET = 0;
    static constexpr std::size_t INTERVAL_OFFSET = NAME_OFFSET + NAME_SIZE;
    static constexpr std::size_t SIZE = INTERVAL_OFFSET + 4;
};

/// The content that changes a password: the present one and the new one.
struct PasswordChange {
    static constexpr std::size_t PRESENT_OFFSET = 0;
    static constexpr std::size_t NEW_OFFSET = PRESENT_OFFSET + NAME_SIZE;
    static constexpr std::size_t SIZE = NEW_OFFSET + NAME_SIZE;
};

/// The most seconds that new network settings can wait to be confirmed.
constexpr int MAX_PROBATION_S = 3600;

/// A byte for each partition and one for the system, not zero while in maintenance.
struct MaintenanceMode {
    static constexpr std::size_t FIRST_PARTITION_OFFSET = 17;
    static constexpr std::size_t SYSTEM_OFFSET = 33;
    static constexpr std::size_t SIZE = 34;
};

/// A piece of a firmware image: its offset in the image, 32 bits, then its bytes.
struct FirmwarePiece {
    static constexpr std::size_t BYTES_OFFSET = 4;
    static constexpr std::size_t MAX_BYTES = 65000;
};

/// Hexadecimal digits, in lower case, of the ID that a browser keeps in a cookie.
constexpr std::size_t DEVICE_ID_DIGITS = 32;

/// A query for a note: the ID of one or nothing, a NUL, and the note to keep or nothing.
struct NoteQuery {
    static constexpr std::size_t ID_DIGITS = 16;  ///< hexadecimal, in lower case
    static constexpr std::size_t MAX_BYTES = 2048;
};

}  // namespace ORVLib::Protocol
