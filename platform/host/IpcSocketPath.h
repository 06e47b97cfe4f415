#pragma once

#include <sys/un.h>

#include <string>

namespace ORVLib::ORVIpc {

/// The path of the socket between daemon and pages: the environment variable ORV_IPC_SOCKET, or
/// /var/run/orvboardd.sock below the site root of this build.
std::string getSocketPath();

/// Makes the address of a socket file. Returns false when the path is empty or too long.
bool makeSocketAddress(const std::string& path, sockaddr_un& address);

}  // namespace ORVLib::ORVIpc
