#include "orv/OrvTrace.h"

#include <sys/time.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "TraceLimit.h"
#include "TraceSink.h"
#include "common/Hex.h"
#include "common/ParseNumber.h"

namespace ORVLib::trace {

namespace {

constexpr int ERROR_LEVEL = 0;

TraceSink traceSink = nullptr;

int highestLevel() {
    const char* const level = std::getenv("ORV_TRACE_LEVEL");
    return parseNumber(level != nullptr ? level : "", 0, INT_MAX).value_or(0);
}

bool isPrintableAscii(unsigned char byte) {
    return byte >= 0x20 && byte < 0x7f;
}

// A text from the network must not end the line and forge an entry, nor control the terminal that
// shows the log.
std::string oneLine(const std::string& text) {
    std::string line;
    line.reserve(text.size());
    for (const char character : text) {
        if (isPrintableAscii(static_cast<unsigned char>(character))) {
            line += character;
        } else {
            line.append("\\x").append(formatHex({&character, 1}));
        }
    }
    return line;
}

std::string timeOfDay() {
    timeval now{};
    gettimeofday(&now, nullptr);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    char text[sizeof("YYYY-MM-DD HH:MM:SS") + 16];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    std::snprintf(text + length, sizeof text - length, ".%06ld", static_cast<long>(now.tv_usec));
    return text;
}

void writeLine(const TraceEntry& entry) {
    char origin[96];
    std::snprintf(origin, sizeof origin, " [%ld] level=%d %d/%d/%d ", static_cast<long>(getpid()),
                  entry.level, entry.category, entry.subCategory, entry.module);
    const std::string line = timeOfDay() + origin + oneLine(entry.text) + '\n';
    // One write per entry keeps the lines of concurrent pages apart. There is nowhere to report a
    // log that cannot be written.
    static_cast<void>(!::write(STDERR_FILENO, line.data(), line.size()));
}

// Only errors are limited: a client can repeat them at will. Higher levels are switched on to find
// a fault.
void writeToStandardError(const TraceEntry& entry) {
    if (entry.level <= ERROR_LEVEL) {
        const TraceLimit::Verdict verdict = TraceLimit::count(entry);
        if (verdict.dropped > 0) {
            TraceEntry summary = entry;
            summary.text =
                "dropped: " + std::to_string(verdict.dropped) + " entries like the next one";
            writeLine(summary);
        }
        if (!verdict.isKept) {
            return;
        }
    }
    writeLine(entry);
}

}  // namespace

TraceSink setTraceSink(TraceSink sink) {
    const TraceSink before = traceSink;
    traceSink = sink;
    return before;
}

OrvTrace::OrvTrace(int category, int subCategory, int module)
    : m_category(category), m_subCategory(subCategory), m_module(module) {}

void OrvTrace::putLog(int level, const std::string& text) {
    const TraceEntry entry{m_category, m_subCategory, m_module, level, text};
    if (traceSink != nullptr) {
        traceSink(entry);
    } else if (level <= highestLevel()) {
        writeToStandardError(entry);
    }
}

}  // namespace ORVLib::trace
