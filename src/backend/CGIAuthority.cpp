#include "gui/CGIAuthority.h"

#include "orv/CommonUtil.h"
#include "orv/PartitionOperatorInfo.h"

namespace ORVLib::Gui {

namespace {

bool isPartition(int partition) {
    return partition >= 0 && partition < ORVUi::CommonUtil::getMaxPartitionNum();
}

}  // namespace

CGIAuthority::~CGIAuthority() = default;

bool CGIAuthority::isPartitionAdmin(int partition) const {
    return isPartition(partition) &&
           ORVUi::PartitionOperatorInfo().isOperablePartition(m_authority.partitions, partition);
}

void CGIAuthority::setPartitionAdmin(int partition) {
    if (isPartition(partition)) {
        m_authority.partitions =
            ORVUi::PartitionOperatorInfo().setOperablePartition(m_authority.partitions, partition);
    }
}

void CGIAuthority::setConfigAuthority() {
    m_authority.roles |= SYSTEM_ADMIN | TECHNICAL_STAFF;
}

void CGIAuthority::setAllAuthority() {
    m_authority.roles |= SYSTEM_ADMIN | TECHNICAL_STAFF | GUEST | OPERATOR;
    for (int partition = 0; isPartition(partition); ++partition) {
        setPartitionAdmin(partition);
    }
}

}  // namespace ORVLib::Gui
