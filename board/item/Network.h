#pragma once

#include <string>

#include "item/Call.h"

/// The network settings that a user could be locked out by, which are on probation when they
/// change.
namespace ORVLib::Board::Network {

/// ITEM_ADDRESSES and ITEM_SERVICES, which are stored as they are written.
void write(const Call& call);

/// ITEM_HTTPS_PORT: the number in ITEM_SERVICES, both ways.
std::string readHttpsPort(const Call& call);
void writeHttpsPort(const Call& call);

/// ITEM_ACCESS_LIST_ADD and ITEM_ACCESS_LIST_REMOVE.
void addAccess(const Call& call);
void removeAccess(const Call& call);

/// ITEM_PROBATION and the items that end a probation.
std::string readProbation(const Call& call);
bool isConfirmation(const std::string& content);
void confirm(const Call& call);
bool isRevision(const std::string& content);
void undo(const Call& call);

/// ITEM_PROBATION_TIME.
std::string readProbationTime(const Call& call);
void writeProbationTime(const Call& call);

}  // namespace ORVLib::Board::Network
