#pragma once

#include <unistd.h>

#include <utility>

namespace ORVLib {

/// Owner of a file descriptor, which is closed when the object is destroyed.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor = -1) : m_descriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~FileDescriptor() { close(); }

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }

    /// Closes the descriptor if it is open. Returns false with errno set when the system reports
    /// that written bytes may be lost.
    bool close() {
        const int descriptor = std::exchange(m_descriptor, -1);
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int m_descriptor;
};

}  // namespace ORVLib
