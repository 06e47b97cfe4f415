#pragma once

#include <string>

#include "item/Call.h"

/// Parts of the network settings that have items of their own.
namespace ORVLib::Board::Network {

/// ITEM_HTTPS_PORT: the number in ITEM_SERVICES, both ways.
std::string readHttpsPort(const Call& call);
void writeHttpsPort(const Call& call);

/// ITEM_ACCESS_LIST_ADD and ITEM_ACCESS_LIST_REMOVE.
void addAccess(const Call& call);
void removeAccess(const Call& call);

}  // namespace ORVLib::Board::Network
