#pragma once

namespace ORVLib {

/// An object that can be sent between a page and the back-end daemon.
///
/// The serialised form is the same on every machine: numbers are big-endian. A page derives from
/// this class for data in a format of its own.
class SerializableObject {
public:
    virtual ~SerializableObject() = default;

    /// Writes the serialised form to `buffer`, which has `size` bytes. Returns 0 on failure. Some
    /// classes throw PException for a buffer that is too small.
    virtual unsigned int getSerialized(unsigned char* buffer, unsigned int size) const = 0;

    /// The size in bytes that getSerialized() needs.
    virtual unsigned int getSerializedSize() const = 0;

    /// Sets the object from the `size` bytes at `data`. They are untrusted input: an implementation
    /// never reads past them, and returns false when they are not a serialised object of its class.
    virtual bool setSerialized(const unsigned char* data, unsigned int size) = 0;
};

}  // namespace ORVLib
