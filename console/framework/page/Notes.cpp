#include "framework/page/Notes.h"

#include <algorithm>

#include "common/Hex.h"
#include "framework/access/Module.h"
#include "framework/backend/Board.h"
#include "protocol/Layouts.h"
#include "protocol/Payload.h"

using ORVLib::Gui::CGIRequester;

namespace Console {

namespace {

using ORVLib::Protocol::NoteQuery;

Record split(const std::string& bytes) {
    Record texts;
    for (std::size_t begin = 0; begin < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\0', begin), bytes.size());
        texts.push_back(bytes.substr(begin, end - begin));
        begin = end + 1;
    }
    return texts;
}

}  // namespace

std::optional<std::string> keepNote(CGIRequester& requester, const Record& texts,
                                    const std::string& replacedId) {
    std::string note;
    for (const std::string& text : texts) {
        if (text.find('\0') != std::string::npos) {
            return std::nullopt;
        }
        note += text + '\0';
    }
    const bool isId = replacedId.empty() || ORVLib::isHex(replacedId, NoteQuery::ID_DIGITS);
    if (note.size() > NoteQuery::MAX_BYTES || !isId) {
        return std::nullopt;
    }
    Payload answer;
    if (requester.getInfo(ITEM_OWN_NOTE | ACCESS_EXCHANGE, Payload(replacedId + '\0' + note),
                          answer) == 0) {
        if (requester.getErrorDetail() != ERROR_NOT_FOUND) {
            logError(Module::REQUEST, "the board keeps no note: error " +
                                          std::to_string(requester.getErrorDetail()));
        }
        return std::nullopt;
    }
    const Record kept = split(answer.getBytes());
    return kept.empty() ? std::nullopt : std::make_optional(kept.front());
}

std::optional<Record> findNote(CGIRequester& requester, const std::string& id) {
    Payload answer;
    if (!ORVLib::isHex(id, NoteQuery::ID_DIGITS) ||
        requester.getInfo(ITEM_OWN_NOTE | ACCESS_EXCHANGE, Payload(id + '\0'), answer) == 0) {
        return std::nullopt;
    }
    return split(answer.getBytes());
}

}  // namespace Console
