#include "multicall/Listener.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace ORVLib::MultiCall {

namespace {

constexpr mode_t OWNER_ONLY = S_IRUSR | S_IWUSR;
constexpr char NEW_SUFFIX[] = ".new";
constexpr char LOCK_SUFFIX[] = ".lock";

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what + ": " + std::generic_category().message(errno));
}

FileDescriptor lockPath(const std::string& path) {
    const std::string name = path + LOCK_SUFFIX;
    FileDescriptor lock(::open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, OWNER_ONLY));
    if (!lock.isOpen()) {
        fail("cannot open " + name + " (make its folder, or choose another socket)");
    }
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno == EWOULDBLOCK) {
            throw std::runtime_error("another page server already serves " + path +
                                     "; stop it first");
        }
        fail("cannot lock " + name);
    }
    return lock;
}

void requireSocketOrNothing(const std::string& path) {
    struct stat found {};
    if (::lstat(path.c_str(), &found) == 0 && !S_ISSOCK(found.st_mode)) {
        throw std::runtime_error(path + " is there and is not a socket; move it away");
    }
}

/// A socket that listens at `path`, which is replaced.
FileDescriptor listenAt(const std::string& path, int queue) {
    sockaddr_un address{};
    const std::string draft = path + NEW_SUFFIX;
    if (path.empty() || draft.size() >= sizeof address.sun_path) {
        throw std::runtime_error("the socket path is empty or too long: " + path);
    }
    address.sun_family = AF_UNIX;
    draft.copy(address.sun_path, draft.size());
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    ::unlink(draft.c_str());
    if (!socket.isOpen() ||
        ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        fail("cannot make the socket " + draft);
    }
    if (::chmod(draft.c_str(), OWNER_ONLY) != 0 || ::listen(socket.get(), queue) != 0 ||
        std::rename(draft.c_str(), path.c_str()) != 0) {
        const int error = errno;
        ::unlink(draft.c_str());
        errno = error;
        fail("cannot listen on " + path);
    }
    return socket;
}

}  // namespace

Listener::Listener(const std::string& path, int socket, int lock)
    : m_path(path), m_socket(socket), m_lock(lock) {
    int listens = 0;
    socklen_t size = sizeof listens;
    if (::getsockopt(socket, SOL_SOCKET, SO_ACCEPTCONN, &listens, &size) != 0 || listens == 0) {
        throw std::runtime_error("descriptor " + std::to_string(socket) +
                                 " is not a socket that listens: set up the supervisor's socket");
    }
    const int flags = ::fcntl(socket, F_GETFL);
    if (::fcntl(socket, F_SETFL, flags | O_NONBLOCK) != 0 ||
        ::fcntl(socket, F_SETFD, FD_CLOEXEC) != 0 ||
        (m_lock.isOpen() && ::fcntl(lock, F_SETFD, FD_CLOEXEC) != 0)) {
        fail("cannot set up descriptor " + std::to_string(socket));
    }
}

Listener Listener::make(const std::string& path, int queue) {
    Listener listener;
    listener.m_path = path;
    listener.m_lock = lockPath(path);
    requireSocketOrNothing(path);
    listener.m_socket = listenAt(path, queue);
    return listener;
}

FileDescriptor Listener::accept() {
    FileDescriptor connection(::accept4(m_socket.get(), nullptr, nullptr, SOCK_CLOEXEC));
    if (connection.isOpen() || errno == EINTR || errno == ECONNABORTED) {
        return connection;
    }
    if (m_isEnded) {
        m_socket.close();
    } else if (errno != EAGAIN) {
        throw std::system_error(errno, std::generic_category(), "cannot accept a connection");
    }
    return connection;
}

void Listener::endQueue() {
    if (!m_lock.isOpen()) {
        m_socket.close();
        return;
    }
    ::unlink(m_path.c_str());
    // From here on, connections are refused.
    ::shutdown(m_socket.get(), SHUT_RD);
    m_isEnded = true;
}

void Listener::close() {
    m_socket.close();
    m_lock.close();
}

}  // namespace ORVLib::MultiCall
