#pragma once

#include <string>

#include "framework/access/Functions.h"
#include "framework/component/Components.h"
#include "framework/page/PageContext.h"

/// The partition that a page works on.
namespace Console {

/// The field of a request that names a partition.
constexpr char PARTITION_FIELD[] = "partition";

/// Sets the partitions on which the user may use a function, and the one that the request names,
/// otherwise the first. Returns false when the user may use none, or not that one.
bool choosePartition(PageContext& context, Function function);

/// "Partition" and its number, in the user's language.
std::string partitionName(int partition);

/// The address of a function's page for a partition.
std::string partitionPath(Function function, int partition);

/// Links to a function's page for each partition that the user may choose; nothing for a page that
/// works on none.
Component makePartitionTabs(const PageContext& context, Function function);

}  // namespace Console
