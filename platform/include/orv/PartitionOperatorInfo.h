#pragma once

namespace ORVLib::ORVUi {

/// The partitions a user may operate, as a mask: bit n, from the least significant, is
/// partition n. Any n may be asked; outside 0 to 31 there is no partition.
class PartitionOperatorInfo {
public:
    /// Whether partition n is in `mask`.
    bool isOperablePartition(unsigned int mask, int n) const;

    /// Returns `mask` with partition n added, or as it is when there is no such partition.
    unsigned int setOperablePartition(unsigned int mask, int n) const;
};

}  // namespace ORVLib::ORVUi
