#include "MessageStream.h"

#include <sys/socket.h>

#include <array>
#include <cerrno>

#include "IpcError.h"
#include "common/ByteOrder.h"

namespace ORVLib::ORVIpc {

namespace {

constexpr std::size_t HEADER_SIZE = 8;
constexpr std::size_t LENGTH_OFFSET = 4;
constexpr std::size_t CHUNK_SIZE = 4096;  // most messages are smaller; each touched page costs time

const unsigned char* bytesOf(const std::string& text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

}  // namespace

std::string frameMessage(int type, const void* data, std::size_t length) {
    std::array<unsigned char, HEADER_SIZE> header{};
    Bytes::write32(header.data(), static_cast<std::uint32_t>(type));
    Bytes::write32(header.data() + LENGTH_OFFSET, static_cast<std::uint32_t>(length));
    std::string bytes(header.begin(), header.end());
    if (length > 0) {
        bytes.append(static_cast<const char*>(data), length);
    }
    return bytes;
}

bool MessageStream::send() {
    std::size_t sent = 0;
    while (sent < m_unsent.size()) {
        const ssize_t count =
            ::send(m_socket.get(), m_unsent.data() + sent, m_unsent.size() - sent, MSG_NOSIGNAL);
        if (count >= 0) {
            sent += static_cast<std::size_t>(count);
        } else if (errno == EAGAIN) {
            break;
        } else if (errno != EINTR) {
            throw systemError(ErrorCode::CONNECTION_BROKEN, "MessageStream::send", errno);
        }
    }
    m_unsent.erase(0, sent);
    return m_unsent.empty();
}

MessageStream::Arrival MessageStream::receive() {
    std::array<char, CHUNK_SIZE> chunk;
    while (true) {
        const ssize_t count = ::recv(m_socket.get(), chunk.data(), chunk.size(), 0);
        if (count > 0) {
            m_received.append(chunk.data(), static_cast<std::size_t>(count));
            return Arrival::BYTES;
        }
        if (count == 0) {
            return Arrival::END;
        }
        if (errno == EAGAIN) {
            return Arrival::NOTHING;
        }
        if (errno != EINTR) {
            throw systemError(ErrorCode::CONNECTION_BROKEN, "MessageStream::receive", errno);
        }
    }
}

bool MessageStream::hasHeader() const {
    if (m_received.size() < HEADER_SIZE) {
        return false;
    }
    const int length = getNextLength();
    if (length < 0 || length > m_maximum) {
        throw wrongSize("MessageStream::hasHeader", length, m_maximum);
    }
    return true;
}

int MessageStream::getNextLength() const {
    return Bytes::readSigned32(bytesOf(m_received) + LENGTH_OFFSET);
}

bool MessageStream::hasMessage() const {
    return hasHeader() &&
           m_received.size() - HEADER_SIZE >= static_cast<std::size_t>(getNextLength());
}

Message MessageStream::take() {
    const auto length = static_cast<std::size_t>(getNextLength());
    Message message{Bytes::readSigned32(bytesOf(m_received)),
                    m_received.substr(HEADER_SIZE, length)};
    m_received.erase(0, HEADER_SIZE + length);
    return message;
}

}  // namespace ORVLib::ORVIpc
