#pragma once

#include "gui/Export.h"
#include "orv/PrimitiveTypeWrapper.h"

namespace ORVLib::ORVUi {

/// The board's maintenance-mode record, 34 bytes.
struct ORV_MAINTENANCE_MODE {
    static constexpr int FIRST_PARTITION = 17;  // one byte a partition, not zero: in maintenance
    static constexpr int PARTITIONS = 16;       // bytes from there
    static constexpr int SYSTEM = 33;           // not zero: the whole system is in maintenance

    /// The record as it crosses the wire.
    unsigned char bytes[34];
};

/// Throws PException for a buffer of less than 34 bytes, and for null.
template <>
ORVGUI_EXPORT unsigned int PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::getSerialized(
    unsigned char* buffer, unsigned int size) const;
template <>
ORVGUI_EXPORT unsigned int PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::getSerializedSize() const;

/// Refuses more than 34 bytes, and null unless `size` is 0. Of fewer bytes, those that are there
/// are taken and the rest is zero.
template <>
ORVGUI_EXPORT bool PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::setSerialized(
    const unsigned char* data, unsigned int size);

}  // namespace ORVLib::ORVUi
