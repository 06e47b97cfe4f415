#pragma once

namespace ORVLib::ORVUi {

/// Operations on a mask of partitions: bit n, from the least significant, is partition n. Every n
/// is allowed; numbers outside 0 to 31 are no partition.
class PartitionOperatorInfo {
public:
    /// Whether partition n is in `mask`. False when there is no partition n.
    bool isOperablePartition(unsigned int mask, int n) const;

    /// Returns `mask` with partition n added, or unchanged when there is no partition n.
    unsigned int setOperablePartition(unsigned int mask, int n) const;
};

}  // namespace ORVLib::ORVUi
