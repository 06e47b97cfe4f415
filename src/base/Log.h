#pragma once

#include "orv/Messages.h"
#include "orv/OrvTrace.h"

/// How the library writes to the trace log.
namespace ORVLib::Gui::Log {

/// Origin of every entry: category, sub-category and one module a class.
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

/// Numbers of lmsg_getmsg().
enum LogText {
    PROGRAM_STARTED = 20001,
    NOT_AVAILABLE = 20003,
    PROGRAM_ABORTED = 20004,
    SIZE_MISMATCH = 20008,
    WRONG_RESPONSE_TYPE = 20009,
    NULL_POINTER = 20010,
    SYSTEM_CALL_FAILED = 20011,
    CANNOT_OPEN = 20015,
    NO_SESSION_COOKIE = 20018,
    SERIALIZATION = 20019,
    INPUT_ENDED = 20020,
    EXCEPTION_CAUGHT = 20030,
    BAD_NUMBER = 20034,
    NO_NUMBER = 20052
};

inline trace::OrvTrace writer(Module module) {
    return {CATEGORY, SUB_CATEGORY, module};
}

/// Writes the log text `number`, formatted with its arguments.
template <typename... Arguments>
void putText(trace::OrvTrace& trace, Level level, LogText number, Arguments... arguments) {
    char buffer[ORV_MESSAGE_SIZE];
    trace.putLog(level, lmsg_getmsg(number, buffer, arguments...));
}

}  // namespace ORVLib::Gui::Log
