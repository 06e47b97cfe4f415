#pragma once

namespace ORVLib::ORVUi {

/// Facts about the board.
class CommonUtil {
public:
    /// Partitions the server can be divided into, at most 32.
    static int getMaxPartitionNum();
};

}  // namespace ORVLib::ORVUi
