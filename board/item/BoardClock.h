#pragma once

#include <string>

#include "item/Call.h"

/// The board's clock: the machine's clock and an offset, which setting the time changes.
namespace ORVLib::Board::BoardClock {

/// Applies the stored offset.
void start(BoardState& state);

/// True for a content of ITEM_CLOCK that can be written.
bool isTime(const std::string& content);

/// ITEM_CLOCK: the time now, in the board's zone, and where it comes from.
std::string read(const Call& call);
void write(const Call& call);

/// The clock in a backup: the fields of ITEM_CLOCK after the time.
std::string readSettings(BoardState& state);
bool isSettings(const std::string& content);

/// Turns such settings into the content to store, and returns the board's new offset: the present
/// one, unless servers give the time. REQUIRES: isSettings(content).
std::int64_t restoreSettings(const BoardState& state, std::string& content);

}  // namespace ORVLib::Board::BoardClock
