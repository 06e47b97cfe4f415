#pragma once

#include <string>

#include "item/Call.h"

/// What pages keep for a session between two requests, such as a form that waits to be confirmed.
///
/// Notes are in memory, and end with their session or the daemon. A session has a few: a new one
/// replaces the oldest.
namespace ORVLib::Board::Notes {

/// True for a NoteQuery: the ID of a note or an empty text, a NUL, and the note or nothing.
bool isQuery(const std::string& content);

/// ITEM_OWN_NOTE: returns the session's note with the ID; or keeps the note in the query, in the
/// place of the one with the ID unless the ID is empty, and returns its ID. So only one of several
/// queries takes the place of a note.
std::string answer(const Call& call);

}  // namespace ORVLib::Board::Notes
