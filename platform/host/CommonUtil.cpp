#include "orv/CommonUtil.h"

namespace ORVLib::ORVUi {

int CommonUtil::getMaxPartitionNum() {
    return 16;
}

}  // namespace ORVLib::ORVUi
