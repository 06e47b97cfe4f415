#include "item/Firmware.h"

#include <system_error>

#include "item/FirmwareStage.h"
#include "item/Installation.h"
#include "item/ItemValidators.h"
#include "orv/OrvTrace.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::Firmware {

namespace {

PException cannotStage(const Call& call, const std::system_error& error) {
    trace::OrvTrace(2, 1, 5).putLog(0, std::string("cannot keep the image: ") + error.what());
    return boardError(ERROR_BOARD_FAILURE, "cannot keep the image", call.id, ACTION_STAGE);
}

// Appends to the session's own image, or begins one.
void extend(const Call& call) {
    FirmwareStage& stage = call.stage;
    const std::uint32_t offset = readNumber(call.content, 0);
    const std::string& session = call.caller->sessionId;
    const std::size_t added = call.content.size() - FirmwarePiece::BYTES_OFFSET;
    if (offset != 0 && (!stage.isOf(session) || offset != stage.getSize() ||
                        offset > FirmwareStage::MAX_SIZE - added)) {
        throw boardError(ERROR_BAD_REQUEST, "this does not continue the staged image", call.id);
    }
    if (offset == 0) {
        stage.begin(session);
    }
    stage.append(std::string_view(call.content).substr(FirmwarePiece::BYTES_OFFSET));
}

std::string requireVersion(const Call& call) {
    if (!call.stage.isOf(call.caller->sessionId)) {
        throw boardError(ERROR_NO_SUCH_ITEM, "this session has staged no image", call.id);
    }
    const auto version = call.stage.getVersion();
    if (!version) {
        throw boardError(ERROR_DAMAGED, "this is no image, or not a whole one", call.id);
    }
    return *version;
}

// The image has been received when a piece completes it.
void noteReceived(const Call& call) {
    const auto version = call.stage.getVersion();
    if (!version) {
        return;
    }
    try {
        call.state.logEvent(call.makeEvent(EventCode::IMAGE_RECEIVED, *version));
    } catch (const DatabaseError&) {
        call.stage.drop();  // a refused piece must not stay
        throw;
    }
}

}  // namespace

bool isPiece(const std::string& content) {
    return content.size() > FirmwarePiece::BYTES_OFFSET &&
           content.size() <= FirmwarePiece::BYTES_OFFSET + FirmwarePiece::MAX_BYTES;
}

bool isDigest(const std::string& content) {
    return isValidRecord(content, text(Digest::DIGITS, Digest::DIGITS));
}

bool isDrop(const std::string& content) {
    return isValidRecord(content, word("drop"));
}

void stage(const Call& call) {
    try {
        extend(call);
    } catch (const std::system_error& error) {
        throw cannotStage(call, error);
    }
    noteReceived(call);
}

std::string readStaged(const Call& call) {
    const std::string version = requireVersion(call);
    return formatRecord(
        {std::to_string(call.stage.getSize()), formatHex(call.stage.getDigest()), version});
}

void start(const Call& call) {
    if (call.installation.isRunning()) {
        throw boardError(ERROR_BUSY, "an installation is running", call.id);
    }
    const std::string version = requireVersion(call);
    if (parseTexts(call.content)->front() != formatHex(call.stage.getDigest())) {
        throw boardError(ERROR_BAD_REQUEST, "another image is staged", call.id);
    }
    call.installation.start(version, call.getUser().name);
    call.stage.drop();
}

void drop(const Call& call) {
    if (call.stage.isOf(call.caller->sessionId)) {
        call.stage.drop();
    }
}

std::string readProgress(const Call& call) {
    return call.installation.readProgress();
}

void dropOrphan(const Parts& parts) {
    if (!parts.stage.isEmpty() && !parts.sessions.find(parts.stage.getOwner(), false)) {
        parts.stage.drop();
    }
}

}  // namespace ORVLib::Board::Firmware
