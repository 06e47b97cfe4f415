#include "orv/GeneralPurposePacket.h"

#include "common/ByteOrder.h"

namespace ORVLib::ORVUi {

namespace {

constexpr unsigned int COUNT_SIZE = 4;
constexpr unsigned int COMPONENT_HEADER_SIZE = 8;
constexpr unsigned int KIND_LONG = 1;

}  // namespace

void GeneralPurposePacket::addComponent(std::unique_ptr<PrimitiveTypeWrapper<long>> component) {
    m_components.push_back(std::move(component));
}

SerializableObject* GeneralPurposePacket::getCompInfo(int index) {
    const auto position = static_cast<std::size_t>(index);
    return index >= 0 && position < m_components.size() ? m_components[position].get() : nullptr;
}

unsigned int GeneralPurposePacket::getSerializedSize() const {
    unsigned int size = COUNT_SIZE;
    for (const auto& component : m_components) {
        size += COMPONENT_HEADER_SIZE + component->getSerializedSize();
    }
    return size;
}

unsigned int GeneralPurposePacket::getSerialized(unsigned char* buffer, unsigned int size) const {
    const unsigned int needed = getSerializedSize();
    if (size < needed) {
        return 0;
    }
    Bytes::write32(buffer, static_cast<std::uint32_t>(m_components.size()));
    buffer += COUNT_SIZE;
    for (const auto& component : m_components) {
        const unsigned int length = component->getSerializedSize();
        Bytes::write32(buffer, KIND_LONG);
        Bytes::write32(buffer + 4, length);
        buffer += COMPONENT_HEADER_SIZE;
        if (component->getSerialized(buffer, length) == 0) {
            return 0;
        }
        buffer += length;
    }
    return needed;
}

bool GeneralPurposePacket::setSerialized(const unsigned char* data, unsigned int size) {
    if (size < COUNT_SIZE) {
        return false;
    }
    const unsigned int count = Bytes::read32(data);
    data += COUNT_SIZE;
    size -= COUNT_SIZE;
    std::vector<std::unique_ptr<PrimitiveTypeWrapper<long>>> read;
    for (unsigned int i = 0; i < count; ++i) {
        if (size < COMPONENT_HEADER_SIZE) {
            return false;
        }
        const unsigned int kind = Bytes::read32(data);
        const unsigned int length = Bytes::read32(data + 4);
        data += COMPONENT_HEADER_SIZE;
        size -= COMPONENT_HEADER_SIZE;
        auto component = std::make_unique<PrimitiveTypeWrapper<long>>();
        if (kind != KIND_LONG || length > size || !component->setSerialized(data, length)) {
            return false;
        }
        read.push_back(std::move(component));
        data += length;
        size -= length;
    }
    if (size != 0) {
        return false;
    }
    m_components = std::move(read);
    return true;
}

}  // namespace ORVLib::ORVUi
