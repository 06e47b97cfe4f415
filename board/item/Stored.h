#pragma once

#include <string>

#include "item/Call.h"

/// Items that are stored as they are written.
namespace ORVLib::Board::Stored {

std::string read(const Call& call);

/// As read(), for an item that is not there before somebody writes it.
std::string readOther(const Call& call);

/// Stores the content and logs that the settings of the item's name were changed.
void write(const Call& call);

/// ITEM_LED: as write(), with an event of its own.
void writeLed(const Call& call);

/// Stores the content and the event. A content that changes nothing leaves no event, so that it
/// does not push out events that report a change.
void store(const Call& call, EventCode code, const std::string& detail);

}  // namespace ORVLib::Board::Stored
