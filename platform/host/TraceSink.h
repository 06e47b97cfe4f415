#pragma once

#include <string>

/// The trace log on an ordinary machine.
///
/// Entries are written to standard error, one line each: time, process, level, the writer's three
/// numbers and the text, in which all but printable ASCII is written as "\xHH". The environment
/// variable ORV_TRACE_LEVEL is the highest level that is written, 0 (errors only) by default.
/// ORV_TRACE_LIMITS is the file of the rate limit (TraceLimit.h).
namespace ORVLib::trace {

struct TraceEntry {
    int category;
    int subCategory;
    int module;
    int level;
    std::string text;
};

using TraceSink = void (*)(const TraceEntry& entry);

/// Passes every entry, whatever its level, to `sink` instead of standard error; null ends that.
/// For tests. Returns the previous sink.
TraceSink setTraceSink(TraceSink sink);

}  // namespace ORVLib::trace
