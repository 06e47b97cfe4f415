#include "state/SampleBoard.h"

#include <algorithm>

#include "orv/GeneralPurposePacket.h"
#include "protocol/Payload.h"

namespace ORVLib::Board {

namespace {

// Records of a fresh board, their texts between bars.
struct Initial {
    std::uint32_t id;
    std::uint32_t count;  // IDs in a row
    const char* texts;
};

constexpr std::uint32_t EACH = PARTITION_COUNT;

constexpr Initial INITIAL[] = {
    {ITEM_PRODUCT, 1, "Sample Server|SN20417-0093|1.0.0"},
    {ITEM_SYSTEM_NAMES, 1, "server-1|AT-1001|Room 2, rack 4|"},
    {ITEM_LED, 1, "off"},
    {ITEM_CLOCK, 1, "0|+00:00|manual||"},
    {ITEM_ADDRESSES, 1, "board|192.0.2.10|24|192.0.2.1|192.0.2.53|"},
    {ITEM_SERVICES, 1, "1|80|1|443|1|22|0|23"},
    {ITEM_TRAPS, 1, "0||public|0|||0||"},
    {ITEM_ACCESS_LIST, 1, ""},
    {ITEM_MAIL, 1, "0||25|||"},
    {ITEM_PROGRESS, 1, "idle|0|"},
    {ITEM_PARTITION_POWER, EACH, "on"},
    {ITEM_PARTITION_POWER + PARTITION_COUNT - 1, 1, "off"},
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
        for (std::uint32_t n = 0; n < initial.count; ++n) {
            items[initial.id + n] = splitAtBars(initial.texts);
        }
    }
    return items;
}

}  // namespace ORVLib::Board
