#pragma once

#include <string>

#include "Call.h"

/// The board's clock: the machine's, and an offset to it that somebody who sets the time makes.
namespace ORVLib::Board::BoardClock {

/// Makes the offset that is stored the board's.
void start(BoardState& state);

/// ITEM_CLOCK: the time now, in the board's zone, and where it comes from.
std::string read(const Call& call);
void write(const Call& call);

/// What is stored: the offset in seconds, then the fields of ITEM_CLOCK behind the time.
bool isStored(const std::string& content);

}  // namespace ORVLib::Board::BoardClock
