#include "gui/MaintenanceMode.h"

#include <algorithm>
#include <cstring>

#include "orv/PException.h"

namespace ORVLib::ORVUi {

namespace {

constexpr unsigned int RECORD_SIZE = sizeof(ORV_MAINTENANCE_MODE);

}  // namespace

template <>
unsigned int PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::getSerialized(unsigned char* buffer,
                                                                       unsigned int size) const {
    if (buffer == nullptr || size < RECORD_SIZE) {
        throw PException(1, 80, 19200, 1, 1537, 20019, "Too short size", 0, 0, 0, 0, 0, 0, 0);
    }
    std::memcpy(buffer, getValue().bytes, RECORD_SIZE);
    return RECORD_SIZE;
}

template <>
unsigned int PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::getSerializedSize() const {
    return RECORD_SIZE;
}

template <>
bool PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::setSerialized(const unsigned char* data,
                                                               unsigned int size) {
    if (size > RECORD_SIZE || (data == nullptr && size > 0)) {
        return false;
    }
    ORV_MAINTENANCE_MODE record{};
    std::copy(data, data + size, record.bytes);
    setValue(record);
    return true;
}

}  // namespace ORVLib::ORVUi
