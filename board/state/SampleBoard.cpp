#include "state/SampleBoard.h"

#include <algorithm>

#include "orv/GeneralPurposePacket.h"
#include "protocol/Payload.h"

namespace ORVLib::Board {

namespace {

// Whether the board has the item once, or each partition has it.
enum Scope { ONE, EACH };

// Records of a fresh board, their texts between bars.
struct Initial {
    std::uint32_t id;
    Scope scope;
    const char* texts;
};

constexpr Initial INITIAL[] = {
    {ITEM_PRODUCT, ONE, "Sample Server|SN20417-0093|1.0.0"},
    {ITEM_SYSTEM_NAMES, ONE, "server-1|AT-1001|Room 2, rack 4|"},
    {ITEM_LED, ONE, "off"},
    {ITEM_CLOCK, ONE, "0|+00:00|manual||"},
    {ITEM_ADDRESSES, ONE, "board|192.0.2.10|24|192.0.2.1|192.0.2.53|"},
    {ITEM_SERVICES, ONE, "1|80|1|443|1|22|0|23"},
    {ITEM_TRAPS, ONE, "0||public|0|||0||"},
    {ITEM_ACCESS_LIST, ONE, ""},
    {ITEM_MAIL, ONE, "0||25|||"},
    {ITEM_PROGRESS, ONE, "idle|0|"},
    {ITEM_PARTITION_POWER, EACH, "on"},
    {ITEM_PARTITION_POWER + PARTITION_COUNT - 1, ONE, "off"},
    {ITEM_PARTITION_SCHEDULE, EACH, "0|2025-01-01|2037-12-31|1111100|07:00:00|19:00:00"},
    {ITEM_PARTITION_BOOT, EACH, "disk|dvd|network|3|0"},
};

constexpr std::uint32_t ENGLISH = 1;

std::string splitAtBars(std::string texts) {
    std::replace(texts.begin(), texts.end(), '|', '\0');
    return texts + '\0';
}

std::string noMaintenancePermission() {
    ORVUi::GeneralPurposePacket packet;
    packet.addComponent(std::make_unique<ORVUi::PrimitiveTypeWrapper<long>>());
    return serialize(packet);
}

}  // namespace

StoredItems getSampleItems() {
    StoredItems items;
    items[ITEM_DEFAULT_LANGUAGE] = formatNumber(ENGLISH);
    items[ITEM_MAINTENANCE_MODE] = std::string(MaintenanceMode::SIZE, '\0');
    items[ITEM_MAINTENANCE_PERMISSION] = noMaintenancePermission();
    for (const Initial& initial : INITIAL) {
        const std::uint32_t count = initial.scope == EACH ? PARTITION_COUNT : 1;
        for (std::uint32_t n = 0; n < count; ++n) {
            items[initial.id + n] = splitAtBars(initial.texts);
        }
    }
    return items;
}

}  // namespace ORVLib::Board
