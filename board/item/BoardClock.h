#pragma once

#include <string>

#include "item/Call.h"

/// The board's clock: the machine's, and an offset to it that somebody who sets the time makes.
namespace ORVLib::Board::BoardClock {

/// Makes the offset that is stored the board's.
void start(BoardState& state);

/// What is written to ITEM_CLOCK.
bool isTime(const std::string& content);

/// ITEM_CLOCK: the time now, in the board's zone, and where it comes from.
std::string read(const Call& call);
void write(const Call& call);

/// What a backup keeps of the clock: the fields of ITEM_CLOCK behind the time.
std::string readSettings(BoardState& state);
bool isSettings(const std::string& content);

/// Turns such settings into what is to be stored, and returns the offset that is to be the board's
/// then: the present one, unless servers give the time. REQUIRES: isSettings(content).
std::int64_t restoreSettings(const BoardState& state, std::string& content);

}  // namespace ORVLib::Board::BoardClock
