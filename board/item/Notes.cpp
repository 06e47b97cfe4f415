#include "item/Notes.h"

#include "common/Hex.h"
#include "protocol/Layouts.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::Notes {

bool isQuery(const std::string& content) {
    const std::size_t end = content.find('\0');
    return (end == 0 || end == NoteQuery::ID_DIGITS) && isHex(content.substr(0, end), end) &&
           content.size() - end - 1 <= NoteQuery::MAX_BYTES && content.size() > 1;
}

std::string answer(const Call& call) {
    const std::size_t end = call.content.find('\0');
    const std::string id = call.content.substr(0, end);
    const std::string note = call.content.substr(end + 1);
    const std::string& session = call.caller->sessionId;
    const std::string* const kept = call.sessions.findNote(session, id);
    const bool isRead = note.empty();
    if (kept == nullptr && (isRead || !id.empty())) {
        throw boardError(ERROR_NOT_FOUND, "the session has no such note", call.id);
    }
    return isRead ? *kept : formatRecord({call.sessions.keepNote(session, id, note)});
}

}  // namespace ORVLib::Board::Notes
