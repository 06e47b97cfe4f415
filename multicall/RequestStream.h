#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace ORVLib::MultiCall {

/// Receives the bytes of one request, all within a time limit.
///
/// The operations throw Refusal when the time is over, the connection breaks, or it ends too early.
class RequestStream {
public:
    /// The time begins now. `socket` stays the caller's.
    RequestStream(int socket, std::chrono::seconds timeLimit);

    /// Receives a netstring. The result is empty when the peer closed the connection without having
    /// sent a byte, as a probe does. Throws Refusal for a malformed length or one over `largest`.
    std::string receiveNetstring(int largest);

    /// Receives `size` bytes.
    void receive(char* to, std::size_t size);

    /// Receives and drops bytes until the peer closes the connection, for two seconds at most. A
    /// web server reads no answer from a connection that is closed while it sends.
    void discard();

private:
    std::size_t receiveSome(char* to, std::size_t size);

    int m_socket;
    std::chrono::steady_clock::time_point m_deadline;
    std::string m_received;  // bytes that follow the netstring
};

}  // namespace ORVLib::MultiCall
