#pragma once

/// Numbers of the log texts. orv/Messages.h lists the arguments of each.
namespace ORVLib::LogText {

enum Number : int {
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

}  // namespace ORVLib::LogText
