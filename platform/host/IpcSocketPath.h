#pragma once

#include <sys/un.h>

#include <string>

namespace ORVLib::ORVIpc {

/// Where the daemon listens and pages connect: the environment variable ORV_IPC_SOCKET, or
/// /var/run/orvboardd.sock below the site root this build was configured with.
std::string getSocketPath();

/// Makes the address of a socket file. Returns false when the system has no room for the path.
bool makeSocketAddress(const std::string& path, sockaddr_un& address);

}  // namespace ORVLib::ORVIpc
