#pragma once

#include <cstddef>
#include <string>

#include "common/FileDescriptor.h"

namespace ORVLib::ORVIpc {

/// Payload bytes a message may have.
constexpr int MAX_PAYLOAD_SIZE = 1024 * 1024;

/// The bytes of one message: type and payload length, 32 bits each, then the payload.
/// REQUIRES: length <= MAX_PAYLOAD_SIZE.
std::string frameMessage(int type, const void* data, std::size_t length);

struct Message {
    int type = 0;
    std::string payload;
};

/// Messages over a non-blocking stream socket, for either side. Never waits: the owner polls the
/// descriptor. Memory grows with what has arrived, not with what was announced.
///
/// Errors of the socket, and bytes that are not a message, are PExceptions with the code
/// CONNECTION_BROKEN.
class MessageStream {
public:
    enum class Arrival { BYTES, NOTHING, END };

    /// REQUIRES: `socket` is non-blocking; 0 <= maximum <= MAX_PAYLOAD_SIZE.
    explicit MessageStream(FileDescriptor socket, int maximum = MAX_PAYLOAD_SIZE)
        : m_socket(std::move(socket)), m_maximum(maximum) {}

    int getDescriptor() const { return m_socket.get(); }

    /// Appends bytes to what is to be sent.
    void queue(const std::string& bytes) { m_unsent += bytes; }

    /// Sends what the socket takes now. Returns true when nothing is left.
    bool send();

    /// Reads what the socket has now, a part of it at a time.
    Arrival receive();

    /// Forgets what was received.
    void discard() { m_received.clear(); }

    /// True when nothing of a next message has been received.
    bool isEmpty() const { return m_received.empty(); }

    /// True when the next message's header is here, and its length is one that may be.
    bool hasHeader() const;

    /// REQUIRES: hasHeader().
    int getNextLength() const;

    bool hasMessage() const;

    /// REQUIRES: hasMessage().
    Message take();

private:
    FileDescriptor m_socket;
    int m_maximum;
    std::string m_unsent;
    std::string m_received;
};

}  // namespace ORVLib::ORVIpc
