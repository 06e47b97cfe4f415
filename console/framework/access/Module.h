#pragma once

#include <string>

#include "framework/access/Functions.h"
#include "orv/OrvTrace.h"

namespace Console {

/// The number of a program in the trace log. The page of a function has the function's ID.
enum class Module : int {
    REQUEST = 0,  ///< the check of a request, before it has a page
    LOGIN = 0x900,
    LOGOUT = 0x901,
    TIMEOUT = 0x902,
    INSPECTOR = 0x903,
    GALLERY = 0x904,
    FRAME = 0x905,
    MENU = 0x906,
    INFORMATION = 0x907,
    SESSION = 0x908
};

constexpr Module moduleOf(Function function) {
    return static_cast<Module>(function);
}

/// Writes an error into the trace log.
inline void logError(Module module, const std::string& text) {
    constexpr int CATEGORY = 1;
    constexpr int SUB_CATEGORY = 2;
    constexpr int ERROR_LEVEL = 0;
    ORVLib::trace::OrvTrace(CATEGORY, SUB_CATEGORY, static_cast<int>(module))
        .putLog(ERROR_LEVEL, text);
}

}  // namespace Console
