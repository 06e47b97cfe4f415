#include "item/Device.h"

#include "protocol/Digest.h"
#include "wire/Protocol.h"
#include "wire/Random.h"

namespace ORVLib::Board::Device {

bool isId(const std::string& text) {
    return isHex(text, DEVICE_ID_DIGITS);
}

bool isQuestion(const std::string& content) {
    const auto texts = parseTexts(content);
    return texts && texts->size() == 1 && (texts->front().empty() || isId(texts->front()));
}

std::string answer(const Call& call) {
    std::string id = parseTexts(call.content)->front();
    const std::string present = call.sessions.getDevice(call.caller->sessionId);
    if (!present.empty() && present != digestOf(id)) {
        throw boardError(ERROR_BAD_REQUEST, "the session has another device", call.id);
    }
    if (!present.empty()) {
        return formatRecord({id});
    }
    if (id.empty() || !call.state.hasDevice(digestOf(id))) {
        id = formatHex(randomBytes(DEVICE_ID_DIGITS / 2));
    }
    call.sessions.setDevice(call.caller->sessionId, digestOf(id));
    return formatRecord({id});
}

}  // namespace ORVLib::Board::Device
