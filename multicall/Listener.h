#pragma once

#include <string>

#include "common/FileDescriptor.h"

namespace ORVLib::MultiCall {

/// The socket on which the page server accepts connections. It is the server's own, with a socket
/// file, or belongs to a supervisor that keeps it while the server is restarted.
///
/// The constructors and functions that make one throw std::runtime_error, with a line for the
/// administrator.
class Listener {
public:
    Listener() = default;

    /// A socket of descriptors that the program was started with; `lock` is -1 for a supervisor's.
    Listener(const std::string& path, int socket, int lock);

    /// Makes the socket file `path` for this user alone. A file that a killed server left is
    /// replaced in one step, so that no client finds it missing. The lock on "<path>.lock", which
    /// is never deleted, ensures that no running server loses its file.
    static Listener make(const std::string& path, int queue);

    int getDescriptor() const { return m_socket.get(); }
    int getLock() const { return m_lock.get(); }
    bool isOpen() const { return m_socket.isOpen(); }

    /// Accepts a connection. The result is not open when none waits. Throws std::system_error when
    /// the system lacks descriptors or memory. Closes the listener after the last connection of a
    /// queue that endQueue() has ended.
    FileDescriptor accept();

    /// Removes the socket file and lets no further connection into the queue. A supervisor's socket
    /// is only closed: its queue is for the next server.
    void endQueue();

    /// Closes the descriptors and leaves the socket to other processes that have it.
    void close();

private:
    std::string m_path;
    FileDescriptor m_socket;
    FileDescriptor m_lock;
    bool m_isEnded = false;
};

}  // namespace ORVLib::MultiCall
