#pragma once

#include <string>

/// Where the trace log goes on an ordinary machine.
///
/// Entries go to standard error, one line each: time, process, level, the writer's three numbers
/// and the text, in which all but printable ASCII is written as "\xHH". The environment variable
/// ORV_TRACE_LEVEL holds the highest level that is kept (0, errors only, when it is unset), and
/// ORV_TRACE_LIMITS a file by which errors that repeat are dropped and counted (TraceLimit.h).
namespace ORVLib::trace {

struct TraceEntry {
    int category;
    int subCategory;
    int module;
    int level;
    std::string text;
};

using TraceSink = void (*)(const TraceEntry& entry);

/// Hands every entry, whatever its level, to `sink` instead; null brings standard error back.
/// For tests. Returns the sink that was set before.
TraceSink setTraceSink(TraceSink sink);

}  // namespace ORVLib::trace
