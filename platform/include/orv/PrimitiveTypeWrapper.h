#pragma once

#include "orv/SerializableObject.h"

namespace ORVLib::ORVUi {

/// One value of a plain type as an object that can cross the wire.
///
/// Who wraps a type says how it is serialised, by specialising the three operations for it: they
/// are declared here and defined for no type in general. The platform does it for `long`.
template <class T>
class PrimitiveTypeWrapper : public SerializableObject {
public:
    PrimitiveTypeWrapper() = default;
    /// Holds a copy; without one, a value of zeros.
    explicit PrimitiveTypeWrapper(const T& value) : m_value(value) {}

    /// The wrapped value.
    const T& getValue() const { return m_value; }
    void setValue(const T& value) { m_value = value; }

    unsigned int getSerialized(unsigned char* buffer, unsigned int size) const override;
    unsigned int getSerializedSize() const override;
    bool setSerialized(const unsigned char* data, unsigned int size) override;

private:
    T m_value{};
};

/// A `long` is 32 bits on the wire on every machine. Returns 0 for a buffer that is too small and
/// for a value that 32 bits do not hold.
template <>
unsigned int PrimitiveTypeWrapper<long>::getSerialized(unsigned char* buffer,
                                                       unsigned int size) const;
template <>
unsigned int PrimitiveTypeWrapper<long>::getSerializedSize() const;

/// Anything but exactly 4 bytes is refused and leaves the value as it was.
template <>
bool PrimitiveTypeWrapper<long>::setSerialized(const unsigned char* data, unsigned int size);

}  // namespace ORVLib::ORVUi
