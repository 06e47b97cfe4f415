#include "gui/MaintenanceMode.h"

#include <algorithm>
#include <cstring>

#include "common/ErrorCode.h"
#include "common/LogText.h"
#include "common/MakeException.h"

namespace ORVLib::ORVUi {

namespace {

constexpr unsigned int RECORD_SIZE = sizeof(ORV_MAINTENANCE_MODE);
constexpr ExceptionOrigin ORIGIN{1, 80, 19200, 1};

}  // namespace

template <>
unsigned int PrimitiveTypeWrapper<ORV_MAINTENANCE_MODE>::getSerialized(unsigned char* buffer,
                                                                       unsigned int size) const {
    if (buffer == nullptr || size < RECORD_SIZE) {
        throw makeException(ORIGIN, ErrorCode::BUFFER_TOO_SMALL, LogText::SERIALIZATION,
                            "Too short size");
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
