#pragma once

#include <cstddef>
#include <string>

#include "common/FileDescriptor.h"

namespace ORVLib::ORVIpc {

/// The most bytes of a payload.
constexpr int MAX_PAYLOAD_SIZE = 1024 * 1024;

/// The bytes of one message: type and payload length, 32 bits each, then the payload.
/// REQUIRES: length <= MAX_PAYLOAD_SIZE.
std::string frameMessage(int type, const void* data, std::size_t length);

struct Message {
    int type = 0;
    std::string payload;
};

/// Messages over a non-blocking stream socket, for either side. Never waits: the owner polls the
/// descriptor. Memory grows with the bytes received, not with the announced length.
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

    /// Appends bytes to those to be sent.
    void queue(const std::string& bytes) { m_unsent += bytes; }

    /// Sends as many bytes as the socket accepts now. Returns true when none is left.
    bool send();

    /// Reads some of the bytes that have arrived.
    Arrival receive();

    /// Drops all bytes received.
    void discard() { m_received.clear(); }

    /// True when no byte of the next message has been received.
    bool isEmpty() const { return m_received.empty(); }

    /// True when the header of the next message has been received. Throws when its length is not
    /// allowed.
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
