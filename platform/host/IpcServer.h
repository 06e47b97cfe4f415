#pragma once

#include <string>

#include "common/FileDescriptor.h"

namespace ORVLib::ORVIpc {

/// The daemon's end of the socket file: listens, and is the only one to do so.
///
/// A lock on "<path>.lock", which stays in its folder for ever, decides who is the daemon, so
/// that a socket file left by a dead one can be replaced and one of a living one never is. Only
/// the user the daemon runs as can connect.
class IpcServer {
public:
    /// Throws std::runtime_error, with a line for the administrator, when another daemon serves
    /// the path or the system refuses.
    explicit IpcServer(const std::string& path);

    /// Removes the socket file.
    ~IpcServer();

    IpcServer(const IpcServer&) = delete;
    IpcServer& operator=(const IpcServer&) = delete;

    int getDescriptor() const { return m_listener.get(); }

    /// Takes the next connection, non-blocking; one that is not open when none waits.
    /// Throws std::system_error when the system has no descriptors or memory left.
    FileDescriptor accept();

private:
    std::string m_path;
    FileDescriptor m_lock;
    FileDescriptor m_listener;
};

}  // namespace ORVLib::ORVIpc
