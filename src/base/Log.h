#pragma once

#include "common/LogText.h"
#include "orv/Messages.h"
#include "orv/OrvTrace.h"

/// The library's entries in the trace log.
namespace ORVLib::Gui::Log {

/// The writer's numbers in every entry: category, sub-category, and a module for each class.
constexpr int CATEGORY = 1;
constexpr int SUB_CATEGORY = 2;
enum Module {
    REQUESTER = 1,
    CODE_GENERATOR = 0x801,
    FORM_INFO = 0x802,
    MESSAGE_MGR = 0x803,
    GUI_UTIL = 0x80a
};

enum Level { ERROR_LEVEL = 0, PROTOCOL_LEVEL = 200 };

inline trace::OrvTrace writer(Module module) {
    return {CATEGORY, SUB_CATEGORY, module};
}

/// Writes the log text `number`, formatted with its arguments.
template <typename... Arguments>
void putText(trace::OrvTrace& trace, Level level, LogText::Number number, Arguments... arguments) {
    char buffer[ORV_MESSAGE_SIZE];
    trace.putLog(level, lmsg_getmsg(number, buffer, arguments...));
}

/// The same for an entry of `module`.
template <typename... Arguments>
void putText(Module module, Level level, LogText::Number number, Arguments... arguments) {
    trace::OrvTrace trace = writer(module);
    putText(trace, level, number, arguments...);
}

}  // namespace ORVLib::Gui::Log
