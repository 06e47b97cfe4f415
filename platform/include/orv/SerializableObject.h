#pragma once

namespace ORVLib {

/// What can cross the wire between a page and the back-end daemon.
///
/// The serialised form is the same on every machine: numbers in it are big-endian.
class SerializableObject {
public:
    virtual ~SerializableObject() = default;

    /// Writes the serialised form to `buffer`, which holds `size` bytes.
    /// Returns non-zero on success. Some objects throw PException for a buffer that is too small.
    virtual unsigned int getSerialized(unsigned char* buffer, unsigned int size) const = 0;

    /// Bytes that getSerialized() needs.
    virtual unsigned int getSerializedSize() const = 0;

    /// Takes the object's state from `size` bytes at `data`, which may come from anywhere:
    /// never reads past them. Returns false when they are not a serialised object of this kind.
    virtual bool setSerialized(const unsigned char* data, unsigned int size) = 0;
};

}  // namespace ORVLib
