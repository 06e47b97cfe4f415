#include "item/Power.h"

#include <algorithm>
#include <array>
#include <optional>

#include "item/ItemValidators.h"
#include "item/Maintenance.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::Power {

namespace {

const std::string ON = "on";
const std::string OFF = "off";

struct Operation {
    const char* name;
    bool from;  ///< the state of the partitions that it changes
    bool to;
    EventCode event;
};

constexpr Operation OPERATIONS[] = {
    {"on", false, true, EventCode::POWERED_ON},
    {"off", true, false, EventCode::POWERED_OFF},
    {"force-off", true, false, EventCode::FORCED_OFF},
    {"reset", true, true, EventCode::RESET},
};

using PowerStates = std::array<bool, PARTITION_COUNT>;

struct Part {
    const char* kind;
    const char* number;
    const char* state;
    const char* reading;
};

// The parts of the sample board. The last events of a fresh board report their faults.
constexpr Part PARTS[] = {
    {"power-supply", "1", "normal", "415 W"}, {"power-supply", "2", "error", "0 W"},
    {"fan", "1", "normal", "4200 rpm"},       {"fan", "2", "warning", "1900 rpm"},
    {"fan", "3", "normal", "4150 rpm"},       {"fan", "4", "normal", "4180 rpm"},
    {"temperature", "1", "normal", "31 C"},   {"temperature", "2", "normal", "44 C"},
};
constexpr std::uint32_t DEGRADED_PARTITION = 1;

bool isState(const std::string& content) {
    return isValidRecord(content, word("on|off"));
}

const Operation& findOperation(const std::string& content) {
    const std::string name = parseTexts(content)->front();
    const Operation* operation = OPERATIONS;
    while (operation->name != name) {  // the validator lets no other through
        ++operation;
    }
    return *operation;
}

// None when it is damaged.
std::optional<bool> findPower(const Call& call, std::uint32_t partition) {
    const auto power = call.state.readItem(ITEM_PARTITION_POWER + partition);
    return power && isState(*power) ? std::optional<bool>(*power == formatRecord({ON}))
                                    : std::nullopt;
}

bool isOn(const Call& call, std::uint32_t partition) {
    const std::string power = readValid(call.state, ITEM_PARTITION_POWER + partition, isState);
    return power == formatRecord({ON});
}

PowerStates readPowers(const Call& call) {
    PowerStates powers{};
    for (std::uint32_t n = 0; n < PARTITION_COUNT; ++n) {
        powers[n] = isOn(call, n);
    }
    return powers;
}

bool isAnyOn(const PowerStates& powers) {
    return std::find(powers.begin(), powers.end(), true) != powers.end();
}

const std::string& nameOf(bool power) {
    return power ? ON : OFF;
}

// Executes the operation on the partitions from `first` to the one before `end` in one change. A
// damaged power state counts as off, and is repaired.
void operate(const Call& call, std::uint32_t first, std::uint32_t end) {
    const Operation& operation = findOperation(call.content);
    StoredItems changes;
    std::vector<Event> events;
    for (std::uint32_t n = first; n < end; ++n) {
        const std::optional<bool> power = findPower(call, n);
        if (power.value_or(false) == operation.from) {
            changes[ITEM_PARTITION_POWER + n] = formatRecord({nameOf(operation.to)});
            events.push_back(call.makeEvent(operation.event, "partition " + std::to_string(n)));
        } else if (!power) {
            changes[ITEM_PARTITION_POWER + n] = formatRecord({OFF});
        }
    }
    if (events.empty() && operation.event == EventCode::RESET) {
        throw boardError(ERROR_BAD_REQUEST, "what is off cannot be reset", call.id);
    }
    call.state.writeItems(changes, events);
}

const char* judgePartition(std::uint32_t partition, bool power, const std::string& mode) {
    if (Maintenance::isPartitionIn(mode, partition)) {
        return "maintenance";
    }
    if (!power) {
        return "off";
    }
    return partition == DEGRADED_PARTITION ? "degraded" : "normal";
}

}  // namespace

bool isOperation(const std::string& content) {
    return isValidRecord(content, word("on|off|force-off|reset"));
}

std::string readSystem(const Call& call) {
    return formatRecord({nameOf(isAnyOn(readPowers(call)))});
}

void operateSystem(const Call& call) {
    operate(call, 0, PARTITION_COUNT);
}

std::string readPartition(const Call& call) {
    return readValid(call.state, call.id, isState);
}

void operatePartition(const Call& call) {
    operate(call, call.getPartition(), call.getPartition() + 1);
}

std::string listPartitions(const Call& call) {
    Record rows;
    for (const bool power : readPowers(call)) {
        rows.push_back(std::to_string(rows.size() / 2));
        rows.push_back(nameOf(power));
    }
    return formatRecord(rows);
}

std::string readStatus(const Call& call) {
    const std::string mode = readValid(call.state, ITEM_MAINTENANCE_MODE, Maintenance::isMode);
    const bool inMaintenance = Maintenance::isOn(mode);
    const PowerStates powers = readPowers(call);
    const bool power = isAnyOn(powers);
    Record rows = {"power", "0", power ? "normal" : "off", nameOf(power)};
    for (std::uint32_t n = 0; n < PARTITION_COUNT; ++n) {
        rows.insert(rows.end(), {"partition", std::to_string(n), judgePartition(n, powers[n], mode),
                                 nameOf(powers[n])});
    }
    for (const Part& part : PARTS) {
        rows.insert(rows.end(), {part.kind, part.number, part.state, part.reading});
    }
    rows.insert(rows.end(), {"maintenance", "0", inMaintenance ? "maintenance" : "normal",
                             nameOf(inMaintenance)});
    return formatRecord(rows);
}

}  // namespace ORVLib::Board::Power
