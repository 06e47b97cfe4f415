#pragma once

#include <string>

#include "item/Call.h"

/// The power of the partitions, and the board's status.
namespace ORVLib::Board::Power {

/// True for an operation that can be written to the items of the power.
bool isOperation(const std::string& content);

/// ITEM_SYSTEM_POWER: the system is on while one of its partitions is.
std::string readSystem(const Call& call);
void operateSystem(const Call& call);

/// ITEM_PARTITION_POWER. Each change of a partition's power is an event; a partition that is in the
/// wanted state already stays as it is. A reset needs a partition that is on.
std::string readPartition(const Call& call);
void operatePartition(const Call& call);

/// ITEM_PARTITIONS.
std::string listPartitions(const Call& call);

/// ITEM_STATUS.
std::string readStatus(const Call& call);

}  // namespace ORVLib::Board::Power
