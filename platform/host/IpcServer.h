#pragma once

#include <string>

#include "common/FileDescriptor.h"

namespace ORVLib::ORVIpc {

/// The daemon's end of the socket file, on which only one daemon listens.
///
/// The daemon holds a lock on "<path>.lock", which is never deleted. So the socket file of a daemon
/// that has ended can be replaced, and the one of a running daemon never is. Only the user whom the
/// daemon runs as can connect.
class IpcServer {
public:
    /// Throws std::runtime_error, with a line for the administrator, when another daemon serves
    /// the path or a system call fails.
    explicit IpcServer(const std::string& path);

    /// Removes the socket file.
    ~IpcServer();

    IpcServer(const IpcServer&) = delete;
    IpcServer& operator=(const IpcServer&) = delete;

    int getDescriptor() const { return m_listener.get(); }

    /// Accepts the next connection, which is non-blocking. Without a waiting client, the result is
    /// not open. Throws std::system_error when the system has no descriptors or memory left.
    FileDescriptor accept();

private:
    std::string m_path;
    FileDescriptor m_lock;
    FileDescriptor m_listener;
};

}  // namespace ORVLib::ORVIpc
