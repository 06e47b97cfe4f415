#include "wire/Telegram.h"

#include <algorithm>

#include "wire/Protocol.h"

namespace ORVLib::Board {

using Layout = TelegramLayout;

Telegram Telegram::parse(const std::string& bytes) {
    Telegram telegram;
    telegram.processId = readNumber(bytes, Layout::PROCESS_ID_OFFSET);
    telegram.sessionId = readField(bytes, Layout::SESSION_ID_OFFSET, Layout::SESSION_ID_SIZE);
    return telegram;
}

std::string Telegram::format() const {
    std::string bytes(Layout::SIZE, '\0');
    bytes.replace(Layout::PROCESS_ID_OFFSET, 4, formatNumber(processId));
    const std::size_t idLength = std::min(sessionId.size(), MAX_SESSION_ID_LENGTH);
    bytes.replace(Layout::SESSION_ID_OFFSET, idLength, sessionId, 0, idLength);
    bytes[Layout::LANGUAGE_OFFSET] = static_cast<char>(language);
    bytes.replace(Layout::ROLES_OFFSET, 4, formatNumber(authority.roles));
    bytes.replace(Layout::PARTITIONS_OFFSET, 4, formatNumber(authority.partitions));
    return bytes;
}

std::string readField(const std::string& bytes, std::size_t offset, std::size_t size) {
    const std::string field = bytes.substr(offset, size);
    return field.substr(0, field.find('\0'));
}

}  // namespace ORVLib::Board
