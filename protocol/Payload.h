#pragma once

#include <string>
#include <utility>

#include "orv/SerializableObject.h"

namespace ORVLib::Protocol {

/// Bytes of any meaning, for the requester.
class Payload : public SerializableObject {
public:
    Payload() = default;
    explicit Payload(std::string bytes) : m_bytes(std::move(bytes)) {}

    const std::string& getBytes() const { return m_bytes; }

    unsigned int getSerialized(unsigned char* buffer, unsigned int size) const override {
        if (size < m_bytes.size()) {
            return 0;
        }
        m_bytes.copy(reinterpret_cast<char*>(buffer), m_bytes.size());
        return getSerializedSize();
    }
    unsigned int getSerializedSize() const override {
        return static_cast<unsigned int>(m_bytes.size());
    }
    bool setSerialized(const unsigned char* data, unsigned int size) override {
        m_bytes.assign(reinterpret_cast<const char*>(data), size);
        return true;
    }

private:
    std::string m_bytes;
};

/// The bytes that an object is sent as.
inline std::string serialize(const SerializableObject& object) {
    std::string bytes(object.getSerializedSize(), '\0');
    object.getSerialized(reinterpret_cast<unsigned char*>(bytes.data()),
                         static_cast<unsigned int>(bytes.size()));
    return bytes;
}

}  // namespace ORVLib::Protocol
