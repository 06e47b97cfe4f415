#pragma once

#include "orv/PException.h"

namespace ORVLib::ORVIpc {

// Error numbers that reach the user.
constexpr int ERROR_CANNOT_CONNECT = 1025;
constexpr int ERROR_BROKEN = 1026;
constexpr int ERROR_TIME_LIMIT = 1029;

/// A failed system call.
inline PException systemError(int detail, const char* operation, int errorNumber) {
    return {1, 3, 1, 2, detail, 20011, operation, errorNumber, 0, 0, 0, 0, 0, 0};
}

/// The peer closed the connection where more had to come.
inline PException endOfInput(const char* operation) {
    return {1, 3, 1, 2, ERROR_BROKEN, 20020, operation, 0, 0, 0, 0, 0, 0, 0};
}

/// A length that is not that of a message, or not of one that fits.
inline PException wrongSize(const char* operation, int got, int expected) {
    return {1, 3, 1, 2, ERROR_BROKEN, 20008, operation, got, expected, 0, 0, 0, 0, 0};
}

}  // namespace ORVLib::ORVIpc
