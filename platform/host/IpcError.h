#pragma once

#include "common/ErrorCode.h"
#include "common/LogText.h"
#include "common/MakeException.h"

/// The exceptions of the IPC.
namespace ORVLib::ORVIpc {

constexpr ExceptionOrigin IPC_ORIGIN{1, 3, 1, 2};

/// A failed system call.
inline PException systemError(ErrorCode::Number code, const char* operation, int errorNumber) {
    return makeException(IPC_ORIGIN, code, LogText::SYSTEM_CALL_FAILED, operation, errorNumber);
}

/// The peer closed the connection before the end of a message.
inline PException endOfInput(const char* operation) {
    return makeException(IPC_ORIGIN, ErrorCode::CONNECTION_BROKEN, LogText::INPUT_ENDED, operation);
}

/// A length that no message has, or that is larger than the limit `expected`.
inline PException wrongSize(const char* operation, int got, int expected) {
    return makeException(IPC_ORIGIN, ErrorCode::CONNECTION_BROKEN, LogText::SIZE_MISMATCH,
                         operation, got, expected);
}

/// A null pointer in place of `what`.
inline PException nullPointer(const char* operation, const char* what) {
    return makeException(IPC_ORIGIN, ErrorCode::CONNECTION_BROKEN, LogText::NULL_POINTER, operation,
                         what);
}

}  // namespace ORVLib::ORVIpc
