#include "IpcSocketPath.h"

#include <sys/socket.h>

#include <cstdlib>
#include <cstring>

namespace ORVLib::ORVIpc {

std::string getSocketPath() {
    const char* const chosen = std::getenv("ORV_IPC_SOCKET");
    return chosen != nullptr && *chosen != '\0' ? chosen
                                                : ORVGUI_SITE_ROOT "/var/run/orvboardd.sock";
}

bool makeSocketAddress(const std::string& path, sockaddr_un& address) {
    address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) {
        return false;
    }
    std::memcpy(address.sun_path, path.data(), path.size());
    return true;
}

}  // namespace ORVLib::ORVIpc
