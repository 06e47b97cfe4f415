#include "orv/PrimitiveTypeWrapper.h"

#include <cstdint>

#include "common/ByteOrder.h"

namespace ORVLib::ORVUi {

namespace {

constexpr unsigned int WIRE_SIZE = 4;

}  // namespace

template <>
unsigned int PrimitiveTypeWrapper<long>::getSerialized(unsigned char* buffer,
                                                       unsigned int size) const {
    const auto number = static_cast<std::int32_t>(m_value);
    if (size < WIRE_SIZE || number != m_value) {
        return 0;
    }
    Bytes::write32(buffer, number);
    return WIRE_SIZE;
}

template <>
unsigned int PrimitiveTypeWrapper<long>::getSerializedSize() const {
    return WIRE_SIZE;
}

template <>
bool PrimitiveTypeWrapper<long>::setSerialized(const unsigned char* data, unsigned int size) {
    if (size != WIRE_SIZE) {
        return false;
    }
    m_value = Bytes::readSigned32(data);
    return true;
}

}  // namespace ORVLib::ORVUi
