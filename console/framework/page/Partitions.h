#pragma once

#include <string>

#include "framework/access/Functions.h"
#include "framework/component/Components.h"
#include "framework/page/PageContext.h"

/// How pages that work on one partition name it, and lead to one another.
namespace Console {

/// The field of a request that says which partition it is about.
constexpr char PARTITION_FIELD[] = "partition";

/// "Partition" and its number, in the user's language.
std::string partitionName(ORVLib::Gui::MessageMgr& messages, int partition);

/// Where the page of a function shows a partition.
std::string partitionPath(Function function, int partition);

/// Links to the page of a function for each partition that the user may choose; nothing for a page
/// that works on none.
Component makePartitionTabs(const PageContext& context, Function function);

}  // namespace Console
