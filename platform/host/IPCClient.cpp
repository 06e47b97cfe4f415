#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "IpcError.h"
#include "IpcSocketPath.h"
#include "MessageStream.h"
#include "common/FileDescriptor.h"
#include "common/ParseNumber.h"
#include "orv/ORVIpc.h"

namespace ORVLib::ORVIpc {

namespace {

constexpr int DEFAULT_TIME_LIMIT_MS = 10 * 1000;
constexpr int LONGEST_TIME_LIMIT_MS = 3600 * 1000;

// The time limit of an exchange: ORV_IPC_TIMEOUT_MS milliseconds, or 10 seconds.
int getTimeLimit() {
    const char* const chosen = std::getenv("ORV_IPC_TIMEOUT_MS");
    return parseNumber(chosen != nullptr ? chosen : "", 1, LONGEST_TIME_LIMIT_MS)
        .value_or(DEFAULT_TIME_LIMIT_MS);
}

/// The end of the time for the whole exchange over one connection, so that a peer that sends a byte
/// now and then does not delay it for ever.
class Deadline {
public:
    explicit Deadline(int limitMs) : m_end(Clock::now() + std::chrono::milliseconds(limitMs)) {}

    /// Milliseconds left, rounded up; throws when there are none.
    int getRemaining(const char* operation) const {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - Clock::now());
        if (left.count() <= 0) {
            throw systemError(ErrorCode::TIME_LIMIT_PASSED, operation, ETIMEDOUT);
        }
        return static_cast<int>(left.count());
    }

    /// Waits until the descriptor is ready for `events`.
    void wait(int descriptor, short events, const char* operation) const {
        pollfd entry{descriptor, events, 0};
        while (true) {
            const int ready = ::poll(&entry, 1, getRemaining(operation));
            if (ready > 0) {
                return;
            }
            if (ready < 0 && errno != EINTR) {
                throw systemError(ErrorCode::CONNECTION_BROKEN, operation, errno);
            }
        }
    }

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point m_end;
};

class SocketConnection : public IPCConnection {
public:
    SocketConnection(FileDescriptor socket, const Deadline& deadline)
        : m_stream(std::move(socket)), m_deadline(deadline) {}

    void sendRequest(int type, const void* data, int length) override {
        if (length < 0 || length > MAX_PAYLOAD_SIZE) {
            throw wrongSize("IPCConnection::sendRequest", length, MAX_PAYLOAD_SIZE);
        }
        if (data == nullptr && length > 0) {
            throw nullPointer("IPCConnection::sendRequest", "data");
        }
        m_stream.queue(frameMessage(type, data, static_cast<std::size_t>(length)));
        while (!m_stream.send()) {
            m_deadline.wait(m_stream.getDescriptor(), POLLOUT, "IPCConnection::sendRequest");
        }
    }

    int getNextRequestSize(bool wait) override {
        while (!m_stream.hasHeader()) {
            if (receiveSome("IPCConnection::getNextRequestSize")) {
                continue;
            }
            if (!wait && m_stream.isEmpty()) {
                return 0;
            }
            m_deadline.wait(m_stream.getDescriptor(), POLLIN, "IPCConnection::getNextRequestSize");
        }
        return m_stream.getNextLength();
    }

    int receiveRequest(int& type, void* buffer, int size) override {
        while (!m_stream.hasMessage()) {
            if (!receiveSome("IPCConnection::receiveRequest")) {
                m_deadline.wait(m_stream.getDescriptor(), POLLIN, "IPCConnection::receiveRequest");
            }
        }
        const int length = m_stream.getNextLength();
        if (length > size) {
            throw wrongSize("IPCConnection::receiveRequest", length, size);
        }
        const Message message = m_stream.take();
        type = message.type;
        if (length > 0) {
            std::memcpy(buffer, message.payload.data(), message.payload.size());
        }
        return length;
    }

private:
    // Returns false when no byte has arrived yet.
    bool receiveSome(const char* operation) {
        const MessageStream::Arrival arrival = m_stream.receive();
        if (arrival == MessageStream::Arrival::END) {
            throw endOfInput(operation);
        }
        return arrival == MessageStream::Arrival::BYTES;
    }

    MessageStream m_stream;
    Deadline m_deadline;
};

constexpr const char* CONNECT = "IPCClient::getNewConnection";

// A connect to a Unix-domain socket waits only while the daemon's queue is full. The socket's send
// time limit limits that.
void limitConnect(int descriptor, int remainingMs) {
    timeval limit{};
    limit.tv_sec = remainingMs / 1000;
    limit.tv_usec = static_cast<suseconds_t>(remainingMs % 1000) * 1000;
    if (::setsockopt(descriptor, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit) != 0) {
        throw systemError(ErrorCode::CANNOT_CONNECT, CONNECT, errno);
    }
}

void connectTo(int descriptor, const sockaddr_un& address, const Deadline& deadline) {
    while (true) {
        limitConnect(descriptor, deadline.getRemaining(CONNECT));
        if (::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
            0) {
            return;
        }
        if (errno == EAGAIN) {
            throw systemError(ErrorCode::TIME_LIMIT_PASSED, CONNECT, ETIMEDOUT);
        }
        if (errno != EINTR) {
            throw systemError(ErrorCode::CANNOT_CONNECT, CONNECT, errno);
        }
    }
}

}  // namespace

// The host has one daemon, at one socket file, whatever the endpoints' numbers are.
IPCConnection* IPCClient::getNewConnection(int /*clientEndpoint*/, int /*daemonEndpoint*/) {
    sockaddr_un address{};
    if (!makeSocketAddress(getSocketPath(), address)) {
        throw systemError(ErrorCode::CANNOT_CONNECT, CONNECT, ENAMETOOLONG);
    }
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!socket.isOpen()) {
        throw systemError(ErrorCode::CANNOT_CONNECT, CONNECT, errno);
    }
    const Deadline deadline(getTimeLimit());
    connectTo(socket.get(), address, deadline);
    if (::fcntl(socket.get(), F_SETFL, O_NONBLOCK) != 0) {
        throw systemError(ErrorCode::CANNOT_CONNECT, CONNECT, errno);
    }
    return std::make_unique<SocketConnection>(std::move(socket), deadline).release();
}

}  // namespace ORVLib::ORVIpc
