#include "framework/page/Partitions.h"

#include <algorithm>

#include "framework/access/Rights.h"
#include "framework/backend/Board.h"
#include "framework/component/AddedAttributes.h"
#include "framework/component/PageText.h"
#include "gui/ORVGUIUtil.h"

using namespace ORVLib::Gui;

namespace Console {

bool choosePartition(PageContext& context, Function function) {
    for (const int partition : readPartitions(context.requester)) {
        if (mayUse(context.requester, context.authority, function, partition)) {
            context.partitions.push_back(partition);
        }
    }
    std::string wanted;
    const bool isNamed = context.form.getFormData(PARTITION_FIELD, wanted);
    const auto chosen = std::find_if(
        context.partitions.begin(), context.partitions.end(),
        [&](int partition) { return !isNamed || std::to_string(partition) == wanted; });
    if (chosen == context.partitions.end()) {
        return false;
    }
    context.partition = *chosen;
    return true;
}

std::string partitionName(int partition) {
    return text(TEXT_PARTITION) + ' ' + std::to_string(partition);
}

std::string partitionPath(Function function, int partition) {
    return ORVGUIUtil::getCGIPath(function) + '?' + PARTITION_FIELD + '=' +
           std::to_string(partition);
}

Component makePartitionTabs(const PageContext& context, Function function) {
    auto tabs = std::make_unique<ComponentGroup>();
    for (const int partition : context.partitions) {
        tabs->add(makeTab(partitionPath(function, partition), partitionName(partition),
                          partition == context.partition));
    }
    return tabs;
}

}  // namespace Console
