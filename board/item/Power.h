#pragma once

#include <string>

#include "item/Call.h"

/// The power of the partitions and what depends on it.
namespace ORVLib::Board::Power {

/// What is written to the items of the power.
bool isOperation(const std::string& content);

/// ITEM_SYSTEM_POWER: the system is on while one of its partitions is.
std::string readSystem(const Call& call);
void operateSystem(const Call& call);

/// ITEM_PARTITION_POWER, as it is stored. Each partition whose power changes tells so in the event
/// log; one that is in the wanted state already stays as it is. A reset needs a partition that is
/// on.
std::string readPartition(const Call& call);
void operatePartition(const Call& call);

/// ITEM_PARTITIONS.
std::string listPartitions(const Call& call);

/// ITEM_STATUS.
std::string readStatus(const Call& call);

}  // namespace ORVLib::Board::Power
