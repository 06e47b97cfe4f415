#include "orv/PartitionOperatorInfo.h"

namespace ORVLib::ORVUi {

namespace {

unsigned int bitOf(int n) {
    return n >= 0 && n < 32 ? 1U << static_cast<unsigned int>(n) : 0;
}

}  // namespace

bool PartitionOperatorInfo::isOperablePartition(unsigned int mask, int n) const {
    return (mask & bitOf(n)) != 0;
}

unsigned int PartitionOperatorInfo::setOperablePartition(unsigned int mask, int n) const {
    return mask | bitOf(n);
}

}  // namespace ORVLib::ORVUi
