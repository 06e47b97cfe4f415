#pragma once

#include "TraceSink.h"

/// A rate limit on the errors in the trace log, which bad requests could fill.
///
/// In a minute, MOST_A_MINUTE entries of each kind are written for each source. The others are
/// counted, and the number is written before the next entry of that kind. The source is the address
/// of the request (REMOTE_ADDR); the kind is the writer's numbers and the text up to its first
/// blank.
///
/// Each page is a process of its own, so the counts are stored in a file that all of them map. The
/// environment variable ORV_TRACE_LIMITS is its path. Without a file that can be used, every entry
/// is written.
namespace ORVLib::trace::TraceLimit {

constexpr unsigned int MOST_A_MINUTE = 60;

struct Verdict {
    bool isKept;           ///< the entry is to be written
    unsigned int dropped;  ///< number of entries of its kind that were not, to be written first
};

/// Counts an entry.
Verdict count(const TraceEntry& entry);

}  // namespace ORVLib::trace::TraceLimit
