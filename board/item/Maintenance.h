#pragma once

#include <cstdint>
#include <string>

#include "item/Call.h"

/// What the maintenance mode means.
namespace ORVLib::Board::Maintenance {

bool isMode(const std::string& content);

/// The permission: a packet whose first component says whether technical staff may use the power.
bool isPermission(const std::string& content);

/// True while the system or some partition is in maintenance.
bool isOn(const std::string& mode);
bool isPartitionIn(const std::string& mode, std::uint32_t partition);

/// True while technical staff may use the power: in maintenance, and permitted.
bool allowsPower(BoardState& state);

/// ITEM_MAINTENANCE_MODE: the event says what is in maintenance then: "system", "partitions 0 2",
/// both, or "off".
void writeMode(const Call& call);

}  // namespace ORVLib::Board::Maintenance
