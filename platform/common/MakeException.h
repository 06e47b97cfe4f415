#pragma once

#include "orv/PException.h"

namespace ORVLib {

/// The source of an exception: the writer's numbers as in orv/OrvTrace.h, and the action code.
struct ExceptionOrigin {
    int category;
    int subCategory;
    int module;
    int actionCode;
};

/// An exception with the error code `code` that is described by the log text `logText`, 0 for none,
/// with up to three arguments.
inline PException makeException(const ExceptionOrigin& origin, int code, int logText,
                                const PException::Argument& argument1 = 0,
                                const PException::Argument& argument2 = 0,
                                const PException::Argument& argument3 = 0) {
    return {origin.category,
            origin.subCategory,
            origin.module,
            origin.actionCode,
            code,
            logText,
            argument1,
            argument2,
            argument3,
            0,
            0,
            0,
            0,
            0};
}

}  // namespace ORVLib
