#include "item/Call.h"

namespace ORVLib::Board {

std::string readFit(BoardState& state, std::uint32_t id, bool (*isFit)(const std::string&)) {
    const auto content = state.readItem(id);
    if (!content || !isFit(*content)) {
        throw DatabaseError("an item is missing or damaged", SQLITE_CORRUPT);
    }
    return *content;
}

}  // namespace ORVLib::Board
