#include "IpcServer.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <system_error>

#include "IpcSocketPath.h"

namespace ORVLib::ORVIpc {

namespace {

constexpr int BACKLOG = 128;

[[noreturn]] void refuse(const std::string& what, int errorNumber) {
    throw std::runtime_error(what + ": " + std::generic_category().message(errorNumber));
}

[[noreturn]] void refuseSecond(const std::string& path) {
    throw std::runtime_error("another daemon already serves " + path + "; stop it first");
}

FileDescriptor lockPath(const std::string& path) {
    const std::string lockPath = path + ".lock";
    FileDescriptor lock(::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!lock.isOpen()) {
        refuse("cannot open " + lockPath + " (make its folder, or choose another socket)", errno);
    }
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno == EWOULDBLOCK) {
            refuseSecond(path);
        }
        refuse("cannot lock " + lockPath, errno);
    }
    return lock;
}

FileDescriptor makeSocket() {
    FileDescriptor made(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!made.isOpen()) {
        refuse("cannot make a socket", errno);
    }
    return made;
}

const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

// The lock file of a running daemon may have been removed, so the socket is tried as well.
void removeStaleSocket(const std::string& path, const sockaddr_un& address) {
    struct stat found {};
    if (::lstat(path.c_str(), &found) != 0) {
        return;
    }
    if (!S_ISSOCK(found.st_mode)) {
        throw std::runtime_error(path + " is there and is not a socket; move it away");
    }
    const FileDescriptor probe = makeSocket();
    if (::connect(probe.get(), generic(address), sizeof address) == 0 || errno == EAGAIN) {
        refuseSecond(path);
    }
    if (::unlink(path.c_str()) != 0) {
        refuse("cannot remove the old socket " + path, errno);
    }
}

}  // namespace

IpcServer::IpcServer(const std::string& path) : m_path(path) {
    sockaddr_un address{};
    if (!makeSocketAddress(path, address)) {
        throw std::runtime_error("the socket path is empty or too long: " + path);
    }
    m_lock = lockPath(path);
    m_listener = makeSocket();
    removeStaleSocket(path, address);
    if (::bind(m_listener.get(), generic(address), sizeof address) != 0) {
        refuse("cannot make the socket " + path, errno);
    }
    // No client can connect before the listen, so none does under the mode before the chmod.
    if (::chmod(path.c_str(), S_IRUSR | S_IWUSR) != 0 || ::listen(m_listener.get(), BACKLOG) != 0) {
        const int errorNumber = errno;
        ::unlink(path.c_str());
        refuse("cannot listen on " + path, errorNumber);
    }
}

IpcServer::~IpcServer() {
    ::unlink(m_path.c_str());
}

FileDescriptor IpcServer::accept() {
    FileDescriptor client(
        ::accept4(m_listener.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!client.isOpen() && errno != EAGAIN && errno != EINTR && errno != ECONNABORTED) {
        throw std::system_error(errno, std::generic_category(), "cannot accept a connection");
    }
    return client;
}

}  // namespace ORVLib::ORVIpc
