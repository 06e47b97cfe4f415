#pragma once

#include <optional>
#include <string>

#include "framework/backend/RecordReader.h"
#include "gui/CGIRequester.h"

/// Texts that the board keeps for a session between two requests, for a short time: newer ones, or
/// a new start of the board, remove them.
namespace Console {

/// Keeps texts of any bytes but NUL, in the place of the note with `replacedId` unless that is
/// empty. Returns the ID. None when the note is too large, the board has no note with `replacedId`,
/// or does not keep this one, which the trace log then says.
std::optional<std::string> keepNote(ORVLib::Gui::CGIRequester& requester, const Record& texts,
                                    const std::string& replacedId = "");

/// The texts of a note of this session; none when the board does not have it.
std::optional<Record> findNote(ORVLib::Gui::CGIRequester& requester, const std::string& id);

}  // namespace Console
