#pragma once

namespace ORVLib::ORVUi {

/// Properties of the board.
class CommonUtil {
public:
    /// Number of partitions that the server can be divided into, at most 32.
    static int getMaxPartitionNum();
};

}  // namespace ORVLib::ORVUi
