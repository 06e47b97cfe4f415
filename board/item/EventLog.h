#pragma once

#include <string>

#include "item/Call.h"

/// The event log as pages see it.
namespace ORVLib::Board::EventLog {

bool isQuery(const std::string& content);
bool isFilter(const std::string& content);

/// ITEM_EVENTS: the events that the call's content asks for, newest first.
std::string answer(const Call& call);

/// ITEM_OWN_EVENT_FILTER: the filter that the user chose last.
std::string readFilter(const Call& call);
void writeFilter(const Call& call);

}  // namespace ORVLib::Board::EventLog
