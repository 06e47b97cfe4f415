#pragma once

#include "TraceSink.h"

/// A rate limit on the errors in the trace log, which the sender of bad requests could fill.
///
/// Of each kind of error, a source gets MOST_A_MINUTE entries in a minute into the log. The others
/// are counted, and the next entry of the kind that is written says how many they were. The source
/// is the address of the request (REMOTE_ADDR); the kind is the writer's numbers and the text up to
/// its first blank.
///
/// Each page is a process of its own, so the counts are kept in a file that all of them map: the
/// environment variable ORV_TRACE_LIMITS names it. Without it, and when it cannot be used, every
/// entry is kept.
namespace ORVLib::trace::TraceLimit {

constexpr unsigned int MOST_A_MINUTE = 60;

struct Verdict {
    bool isKept;           ///< the entry is to be written
    unsigned int dropped;  ///< how many entries of its kind were not, and are to be reported first
};

/// Counts an entry.
Verdict count(const TraceEntry& entry);

}  // namespace ORVLib::trace::TraceLimit
