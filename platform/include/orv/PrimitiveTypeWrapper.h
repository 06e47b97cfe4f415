#pragma once

#include "orv/SerializableObject.h"

namespace ORVLib::ORVUi {

/// A serialisable object that holds one value of a plain type.
///
/// To wrap a type, specialise getSerialized(), getSerializedSize() and setSerialized() for it: they
/// are declared here without a general definition. The platform specialises them for `long`.
///
/// @code
/// const ORVUi::PrimitiveTypeWrapper<long> value(258);
/// unsigned char bytes[4];
/// value.getSerialized(bytes, sizeof bytes);  // 00 00 01 02
/// @endcode
template <class T>
class PrimitiveTypeWrapper : public SerializableObject {
public:
    PrimitiveTypeWrapper() = default;
    /// Holds a copy of `value`; the default constructor a value of zeros.
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

/// A `long` is sent as 32 bits by every machine. Returns 0 for a buffer that is too small and for a
/// value that does not fit into 32 bits.
template <>
unsigned int PrimitiveTypeWrapper<long>::getSerialized(unsigned char* buffer,
                                                       unsigned int size) const;
template <>
unsigned int PrimitiveTypeWrapper<long>::getSerializedSize() const;

/// Returns false and leaves the value unchanged unless `size` is 4.
template <>
bool PrimitiveTypeWrapper<long>::setSerialized(const unsigned char* data, unsigned int size);

}  // namespace ORVLib::ORVUi
