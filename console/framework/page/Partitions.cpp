#include "framework/page/Partitions.h"

#include "gui/ORVGUIUtil.h"

using namespace ORVLib::Gui;

namespace Console {

std::string partitionName(MessageMgr& messages, int partition) {
    return messages.getString(TEXT_PARTITION) + ' ' + std::to_string(partition);
}

std::string partitionPath(Function function, int partition) {
    return ORVGUIUtil::getCGIPath(function) + '?' + PARTITION_FIELD + '=' +
           std::to_string(partition);
}

Component makePartitionTabs(const PageContext& context, Function function) {
    auto tabs = std::make_unique<ComponentGroup>();
    for (const int partition : context.partitions) {
        tabs->add(makeLink(partitionPath(function, partition),
                           partitionName(context.messages, partition), "",
                           partition == context.partition ? "current" : ""));
    }
    return tabs;
}

}  // namespace Console
