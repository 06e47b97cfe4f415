#pragma once

#include <cstdint>
#include <string>

#include "item/Item.h"
#include "state/BoardState.h"
#include "state/Sessions.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

class FirmwareStage;
class Installation;
class Probation;

/// The user of a request, and the session.
struct Caller {
    User user;
    std::string sessionId;
};

/// The parts of the board.
struct Parts {
    BoardState& state;
    Sessions& sessions;
    FirmwareStage& stage;
    Installation& installation;
    Probation& probation;
};

/// One use of an item.
struct Call : Parts {
    std::uint32_t id;
    const Item& rules;
    const Caller* caller;             ///< null for a public item
    const std::string& content;       ///< valid; empty when the item is read
    const std::string& passwordHash;  ///< of the new password in the content, if there is one

    const User& getUser() const { return caller->user; }
    std::uint32_t getPartition() const { return id & PARTITION_MASK; }
    Event makeEvent(EventCode code, const std::string& detail) const {
        return {code, caller->user.name, detail};
    }
};

/// An item that every board has. Throws DatabaseError when it is missing or damaged.
std::string readValid(BoardState& state, std::uint32_t id, Validator isValid);

}  // namespace ORVLib::Board
