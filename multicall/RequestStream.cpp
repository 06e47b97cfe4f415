#include "multicall/RequestStream.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "common/FileIo.h"
#include "multicall/Refusal.h"
#include "multicall/ScgiRequest.h"

namespace ORVLib::MultiCall {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t BLOCK_SIZE = 0x4000;
constexpr std::chrono::seconds DISCARD_TIME{2};

[[noreturn]] void refuseEarlyEnd() {
    throw Refusal(Refusal::BAD_REQUEST, "the request ended early");
}

}  // namespace

RequestStream::RequestStream(int socket, std::chrono::seconds timeLimit)
    : m_socket(socket), m_deadline(Clock::now() + timeLimit) {}

std::string RequestStream::receiveNetstring(int largest) {
    char block[BLOCK_SIZE];
    std::size_t size = 0;
    while (size == 0 || m_received.size() < size) {
        const std::size_t length = receiveSome(block, sizeof block);
        if (length == 0 && m_received.empty()) {
            return {};
        }
        if (length == 0) {
            refuseEarlyEnd();
        }
        m_received.append(block, length);
        size = measureNetstring(m_received, largest);
    }
    std::string netstring = m_received.substr(0, size);
    m_received.erase(0, size);
    return netstring;
}

void RequestStream::receive(char* to, std::size_t size) {
    const std::size_t kept = m_received.copy(to, size);
    m_received.erase(0, kept);
    for (std::size_t received = kept; received < size;) {
        const std::size_t length = receiveSome(to + received, size - received);
        if (length == 0) {
            refuseEarlyEnd();
        }
        received += length;
    }
}

void RequestStream::discard() {
    m_deadline = Clock::now() + DISCARD_TIME;
    char block[BLOCK_SIZE];
    try {
        while (receiveSome(block, sizeof block) > 0) {
        }
    } catch (const Refusal&) {
        // The request has its answer, whether the peer reads it or not.
    }
}

/// As read(), at the latest at the deadline.
std::size_t RequestStream::receiveSome(char* to, std::size_t size) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_deadline - Clock::now());
    pollfd entry{m_socket, POLLIN, 0};
    // A peer that always has a byte ready must not gain time either.
    if (left.count() <= 0 || ::poll(&entry, 1, static_cast<int>(left.count())) == 0) {
        throw Refusal(Refusal::TIMEOUT, "the request did not arrive in time");
    }
    const ssize_t length = readSome(m_socket, to, size);
    if (length < 0) {
        throw Refusal(Refusal::BAD_REQUEST,
                      "the request cannot be received: " + std::generic_category().message(errno));
    }
    return static_cast<std::size_t>(length);
}

}  // namespace ORVLib::MultiCall
