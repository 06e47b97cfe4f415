#pragma once

#include <string>

#include "orv/OrvTrace.h"

namespace ORVLib::MultiCall {

/// Writes an error of the page server into the trace log.
inline void logError(const std::string& text) {
    constexpr int CATEGORY = 1;
    constexpr int SUB_CATEGORY = 3;
    constexpr int PAGE_SERVER = 1;
    constexpr int ERROR_LEVEL = 0;
    trace::OrvTrace(CATEGORY, SUB_CATEGORY, PAGE_SERVER).putLog(ERROR_LEVEL, text);
}

}  // namespace ORVLib::MultiCall
