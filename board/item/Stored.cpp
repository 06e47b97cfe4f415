#include "item/Stored.h"

#include <cstdio>

#include "item/Item.h"

namespace ORVLib::Board::Stored {

namespace {

// The item in the event log.
std::string nameOf(const Call& call) {
    if (call.rules.name == nullptr) {
        char text[sizeof "item 0x00000000"];
        std::snprintf(text, sizeof text, "item 0x%08x", call.id);
        return text;
    }
    const std::string name = call.rules.name;
    return call.rules.scope == Scope::PARTITION
               ? name + " of partition " + std::to_string(call.getPartition())
               : name;
}

}  // namespace

std::string read(const Call& call) {
    return readValid(call.state, call.id, call.rules.isValid);
}

std::string readOther(const Call& call) {
    if (!call.state.readItem(call.id)) {
        throw boardError(ERROR_NO_SUCH_ITEM, "the item was never set", call.id);
    }
    return read(call);
}

void write(const Call& call) {
    store(call, EventCode::SETTINGS_CHANGED, nameOf(call));
}

void writeLed(const Call& call) {
    store(call, EventCode::LED_CHANGED, parseTexts(call.content)->front());
}

void store(const Call& call, EventCode code, const std::string& detail) {
    if (call.state.readItem(call.id) != call.content) {
        call.state.writeItem(call.id, call.content, call.makeEvent(code, detail));
    }
}

}  // namespace ORVLib::Board::Stored
