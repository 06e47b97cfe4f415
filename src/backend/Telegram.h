#pragma once

#include <cstring>
#include <string>

#include "common/ByteOrder.h"
#include "gui/CGIAuthority.h"

/// The fields of a telegram's 48 bytes, by their offsets.
namespace ORVLib::Gui::Telegram {

constexpr int PROCESS_ID = 0;
constexpr int SESSION_ID = 4;
constexpr int SESSION_ID_SIZE = 32;
constexpr int LANGUAGE = 39;
constexpr int ROLES = 40;
constexpr int PARTITIONS = 44;

/// The bytes of a payload that are sent: the low 16 bits of its size.
inline int payloadLength(unsigned int size) {
    return static_cast<int>(size & 0xffff);
}

/// The session ID, which ends at its first NUL byte or with its field.
inline std::string sessionId(const unsigned char* telegram) {
    const char* const text = reinterpret_cast<const char*>(telegram + SESSION_ID);
    return {text, strnlen(text, SESSION_ID_SIZE)};
}

inline int language(const unsigned char* telegram) {
    return telegram[LANGUAGE];
}

inline CGI_AUTHORITY authority(const unsigned char* telegram) {
    return {Bytes::read32(telegram + ROLES), Bytes::read32(telegram + PARTITIONS)};
}

inline void setAuthority(unsigned char* telegram, const CGIAuthority& authority) {
    CGI_AUTHORITY record{};
    authority.getAuthority(record);
    Bytes::write32(telegram + ROLES, record.roles);
    Bytes::write32(telegram + PARTITIONS, record.partitions);
}

}  // namespace ORVLib::Gui::Telegram
