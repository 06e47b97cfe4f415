#include "item/Call.h"

namespace ORVLib::Board {

std::string readValid(BoardState& state, std::uint32_t id, Validator isValid) {
    const auto content = state.readItem(id);
    if (!content || !isValid(*content)) {
        throw DatabaseError("an item is missing or damaged", SQLITE_CORRUPT);
    }
    return *content;
}

}  // namespace ORVLib::Board
