#pragma once

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <string_view>

namespace ORVLib {

/// As read(), and starts again when a signal interrupts it.
inline ssize_t readSome(int descriptor, char* buffer, std::size_t size) {
    ssize_t length = 0;
    do {
        length = ::read(descriptor, buffer, size);
    } while (length < 0 && errno == EINTR);
    return length;
}

/// Writes all bytes, in several pieces if need be. Returns false with write()'s errno when the
/// system does not take them all. A signal handler may call it.
inline bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace ORVLib
