#include "item/Maintenance.h"

#include "item/Stored.h"
#include "orv/GeneralPurposePacket.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::Maintenance {

namespace {

// Bytes from the first partition's to the system's.
constexpr std::size_t MARKS =
    MaintenanceMode::SYSTEM_OFFSET - MaintenanceMode::FIRST_PARTITION_OFFSET + 1;

bool isSystemIn(const std::string& mode) {
    return mode[MaintenanceMode::SYSTEM_OFFSET] != '\0';
}

bool readPacket(ORVUi::GeneralPurposePacket& packet, const std::string& content) {
    return packet.setSerialized(reinterpret_cast<const unsigned char*>(content.data()),
                                static_cast<unsigned int>(content.size()));
}

bool isPermitted(const std::string& permission) {
    ORVUi::GeneralPurposePacket packet;
    readPacket(packet, permission);
    const auto* const power =
        dynamic_cast<const ORVUi::PrimitiveTypeWrapper<long>*>(packet.getCompInfo(0));
    return power != nullptr && power->getValue() != 0;
}

std::string describe(const std::string& mode) {
    std::string partitions;
    for (std::uint32_t n = 0; n < MARKS - 1; ++n) {
        partitions += isPartitionIn(mode, n) ? ' ' + std::to_string(n) : "";
    }
    std::string text = isSystemIn(mode) ? "system" : "";
    if (!partitions.empty()) {
        text += (text.empty() ? "partitions" : ", partitions") + partitions;
    }
    return text.empty() ? "off" : text;
}

}  // namespace

bool isMode(const std::string& content) {
    return content.size() == MaintenanceMode::SIZE;
}

bool isPermission(const std::string& content) {
    ORVUi::GeneralPurposePacket packet;
    return readPacket(packet, content);
}

bool isOn(const std::string& mode) {
    return mode.substr(MaintenanceMode::FIRST_PARTITION_OFFSET, MARKS) != std::string(MARKS, '\0');
}

bool isPartitionIn(const std::string& mode, std::uint32_t partition) {
    return mode[MaintenanceMode::FIRST_PARTITION_OFFSET + partition] != '\0';
}

bool allowsPower(BoardState& state) {
    return isOn(readValid(state, ITEM_MAINTENANCE_MODE, isMode)) &&
           isPermitted(readValid(state, ITEM_MAINTENANCE_PERMISSION, isPermission));
}

void writeMode(const Call& call) {
    Stored::store(call, EventCode::MAINTENANCE_CHANGED, describe(call.content));
}

}  // namespace ORVLib::Board::Maintenance
