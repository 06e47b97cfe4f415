#include "framework/page/PartitionMain.h"

#include "framework/access/Rights.h"
#include "framework/backend/Board.h"
#include "framework/page/Partitions.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

std::vector<int> usablePartitions(const PageContext& context, Function function) {
    std::vector<int> usable;
    for (const int partition : readPartitions(context.requester)) {
        if (mayUse(context.requester, context.authority, function, partition)) {
            usable.push_back(partition);
        }
    }
    return usable;
}

}  // namespace

void PartitionMain::choosePartition(PageContext& context) {
    context.partitions = usablePartitions(context, getFunction());
    if (context.partitions.empty()) {
        errorExit("Error", ERROR_NOT_AUTHORISED);
    }
    std::string wanted;
    if (!m_formInfo->getFormData(PARTITION_FIELD, wanted)) {
        context.partition = context.partitions.front();
        return;
    }
    for (const int partition : context.partitions) {
        if (std::to_string(partition) == wanted) {
            context.partition = partition;
            return;
        }
    }
    errorExit("Error", ERROR_NOT_AUTHORISED);
}

}  // namespace Console
