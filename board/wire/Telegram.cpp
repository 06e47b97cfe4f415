#include "wire/Telegram.h"

#include <algorithm>

#include "common/ByteOrder.h"

namespace ORVLib::Board {

namespace {

constexpr std::size_t SESSION_ID_OFFSET = 4;
constexpr std::size_t SESSION_ID_SIZE = 32;
constexpr std::size_t LANGUAGE_OFFSET = 39;
constexpr std::size_t ROLES_OFFSET = 40;
constexpr std::size_t PARTITIONS_OFFSET = 44;

}  // namespace

Telegram Telegram::parse(const std::string& bytes) {
    Telegram telegram;
    telegram.processId = readNumber(bytes, 0);
    telegram.sessionId = readField(bytes, SESSION_ID_OFFSET, SESSION_ID_SIZE);
    return telegram;
}

std::string Telegram::format() const {
    std::string bytes(SIZE, '\0');
    bytes.replace(0, 4, formatNumber(processId));
    const std::size_t idLength = std::min(sessionId.size(), MAX_SESSION_ID_LENGTH);
    bytes.replace(SESSION_ID_OFFSET, idLength, sessionId, 0, idLength);
    bytes[LANGUAGE_OFFSET] = static_cast<char>(language);
    bytes.replace(ROLES_OFFSET, 4, formatNumber(authority.roles));
    bytes.replace(PARTITIONS_OFFSET, 4, formatNumber(authority.partitions));
    return bytes;
}

std::string readField(const std::string& bytes, std::size_t offset, std::size_t size) {
    const std::string field = bytes.substr(offset, size);
    return field.substr(0, field.find('\0'));
}

std::uint32_t readNumber(const std::string& bytes, std::size_t offset) {
    return Bytes::read32(reinterpret_cast<const unsigned char*>(bytes.data()) + offset);
}

std::string formatNumber(std::uint32_t number) {
    unsigned char bytes[4];
    Bytes::write32(bytes, number);
    return {std::begin(bytes), std::end(bytes)};
}

}  // namespace ORVLib::Board
