#pragma once

#include <cstdint>

#include "common/LogText.h"
#include "common/MakeException.h"
#include "protocol/Errors.h"
#include "protocol/Items.h"
#include "protocol/Layouts.h"
#include "protocol/Numbers.h"
#include "protocol/Record.h"
#include "protocol/Roles.h"

namespace ORVLib::Board {

using namespace Protocol;

/// Partitions that the board has, from 0.
constexpr std::uint32_t PARTITION_COUNT = 4;

/// The exception of an error response: its text, and the number that is wrong.
inline PException boardError(ErrorDetail detail, const char* what, std::uint32_t number = 0,
                             ErrorAction actionCode = ACTION_NONE) {
    return makeException({2, 1, 1, actionCode}, static_cast<int>(detail), LogText::BAD_NUMBER, what,
                         static_cast<int>(number));
}

}  // namespace ORVLib::Board
