#pragma once

#include "gui/Export.h"
#include "orv/PrimitiveTypeWrapper.h"

namespace ORVLib::ORVUi {

/// The board's maintenance-mode record, 34 bytes: which partitions are in maintenance, and whether
/// the system is.
///
/// @code
/// ORVUi::PrimitiveTypeWrapper<ORVUi::ORV_MAINTENANCE_MODE> mode;
/// CGIRequester requester("the session ID from the cookie");
/// if (requester.getInfo(ITEM_MAINTENANCE_MODE, mode) != 0) {
///     std::cout << int{mode.getValue().bytes[ORVUi::ORV_MAINTENANCE_MODE::SYSTEM]};
/// }
/// @endcode
struct ORV_MAINTENANCE_MODE {
    static constexpr int FIRST_PARTITION = 17;  // one byte per partition; not zero: in maintenance
    static constexpr int PARTITIONS = 16;       // number of these bytes
    static constexpr int SYSTEM = 33;           // not zero: the whole system is in maintenance

    /// The record as it is sent.
    unsigned char bytes[34];
};

/// Throws PException for null and for a buffer of less than 34 bytes.
template <>
ORVGUI_EXPORT unsigned int PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::getSerialized(
    unsigned char* buffer, unsigned int size) const;
template <>
ORVGUI_EXPORT unsigned int PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::getSerializedSize() const;

/// Returns false for more than 34 bytes, and for null unless `size` is 0. Missing bytes become
/// zero.
template <>
ORVGUI_EXPORT bool PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::setSerialized(
    const unsigned char* data, unsigned int size);

}  // namespace ORVLib::ORVUi
