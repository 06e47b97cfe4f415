#pragma once

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <deque>
#include <string>

#include "Input.h"
#include "common/FileDescriptor.h"

// A daemon in the harness's own process: the library connects to one end of a socket pair that
// holds the whole response already. REQUIRES: the link option --wrap=connect.

namespace Fuzz {

/// The answers on one connection after the other; after the last one no connection succeeds.
inline std::deque<std::string> responses;

/// The other end of the last connection.
inline ORVLib::FileDescriptor peer;

/// One end of a connection, at whose other this was sent.
inline ORVLib::FileDescriptor connected(const std::string& sent, bool hangsUp = true) {
    int ends[2] = {-1, -1};
    require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) == 0);
    peer = ORVLib::FileDescriptor(ends[1]);
    require(send(ends[1], sent.data(), sent.size(), 0) == static_cast<ssize_t>(sent.size()));
    if (hangsUp) {
        shutdown(ends[1], SHUT_WR);
    }
    return ORVLib::FileDescriptor(ends[0]);
}

}  // namespace Fuzz

extern "C" [[gnu::used]] inline int __wrap_connect(int socket, const void*, socklen_t) {  // NOLINT
    if (Fuzz::responses.empty()) {
        errno = ECONNREFUSED;
        return -1;
    }
    const ORVLib::FileDescriptor end = Fuzz::connected(Fuzz::responses.front());
    Fuzz::responses.pop_front();
    return dup2(end.get(), socket) < 0 ? -1 : 0;
}
