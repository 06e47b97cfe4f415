#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace ORVLib::Board {

/// How an operation can be made to misbehave.
enum class FaultKind {
    NONE,
    ERROR,              ///< refused with an error response, not executed
    WRONG_TYPE,         ///< answered with another message type
    SHORT_HEADER,       ///< answered with a telegram of 47 bytes
    SHORT_PAYLOAD,      ///< the payload lacks its last byte
    OVERSIZED_PAYLOAD,  ///< the payload has 4096 bytes too many
    SILENCE,            ///< never answered, not executed
    EARLY_CLOSE,        ///< cut off in the middle of the answer
    STALL,              ///< half of the answer, and no more
    CRASH_BEFORE,       ///< the daemon ends, as if killed, before it executes the operation
    CRASH_AFTER,        ///< the same, executed but not answered
    CRASH_MIDWAY,       ///< the same, in the middle of the answer
    CRASH_LATE          ///< the same, after the answer
};

/// The faults the daemon was started with.
class Faults {
public:
    /// Adds "PROCEDURE:KIND". Throws std::invalid_argument with a line for the administrator.
    void add(const std::string& text);

    FaultKind find(std::uint32_t procedure) const;

private:
    std::map<std::uint32_t, FaultKind> m_kinds;
    FaultKind m_any = FaultKind::NONE;
};

}  // namespace ORVLib::Board
