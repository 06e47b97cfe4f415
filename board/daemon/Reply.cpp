#include "daemon/Reply.h"

#include "MessageStream.h"
#include "protocol/Payload.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

constexpr std::uint32_t WRONG_TYPE_BIT = 0x00100000;
constexpr std::size_t OVERSIZE = 4096;

std::string frameText(std::uint32_t type, const std::string& text) {
    return ORVIpc::frameMessage(static_cast<int>(type), text.data(), text.size());
}

}  // namespace

Reply Reply::error(const PException& exception) {
    return {TYPE_ERROR, serialize(exception), std::nullopt};
}

void Reply::damage(FaultKind kind, std::uint32_t requestType) {
    if (kind == FaultKind::WRONG_TYPE) {
        type ^= WRONG_TYPE_BIT;
    } else if (kind == FaultKind::SHORT_HEADER) {
        type = requestType;
        header.resize(TelegramLayout::SIZE - 1);
    } else if (kind == FaultKind::SHORT_PAYLOAD && payload && !payload->empty()) {
        payload->pop_back();
    } else if (kind == FaultKind::OVERSIZED_PAYLOAD && payload) {
        payload->append(OVERSIZE, '\xff');
    }
}

std::string Reply::frame() const {
    return payload ? frameText(type, header) + frameText(type, *payload) : frameText(type, header);
}

}  // namespace ORVLib::Board
