#include "daemon/Client.h"

#include <poll.h>

#include <csignal>
#include <cstdio>

#include "orv/OrvTrace.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

// Not an error: a client must not be able to fill the log.
constexpr int EXCESS_LEVEL = 100;

using ORVIpc::MessageStream;

std::string describeExcess(std::uint32_t type) {
    char text[96];
    std::snprintf(text, sizeof text, "bytes after request 0x%08x were ignored", type);
    return text;
}

bool isCutShort(FaultKind fault) {
    return fault == FaultKind::EARLY_CLOSE || fault == FaultKind::STALL ||
           fault == FaultKind::CRASH_MIDWAY;
}

}  // namespace

Client::Client(std::uint64_t ticket, FileDescriptor socket, std::chrono::milliseconds timeLimit)
    : m_ticket(ticket), m_stream(std::move(socket), MAX_PAYLOAD_SIZE), m_timeLimit(timeLimit) {}

void Client::enter(Phase phase) {
    m_phase = phase;
    m_since = Clock::now();
}

Client::Clock::time_point Client::getDeadline() const {
    switch (m_phase) {
        case Phase::WORKING:
        case Phase::IGNORED:
            return Clock::time_point::max();
        case Phase::RECEIVING:
            // A payload follows its telegram at once. Half the time leaves the client, which waits
            // as long, time to see the answer.
            return m_since + (m_hasTelegram ? m_timeLimit / 2 : m_timeLimit);
        default:
            return m_since + m_timeLimit;
    }
}

short Client::getEvents() const {
    if (m_phase == Phase::WORKING) {
        return 0;
    }
    return m_phase == Phase::SENDING ? POLLOUT : POLLIN;
}

bool Client::proceed() {
    try {
        switch (m_phase) {
            case Phase::RECEIVING:
                return receiveRequest();
            case Phase::SENDING:
                send();
                return false;
            case Phase::ENDING:
            case Phase::IGNORED:
                awaitEnd();
                return false;
            default:
                close();  // hung up while worked on
                return false;
        }
    } catch (const PException&) {
        close();
        return false;
    }
}

bool Client::receiveRequest() {
    try {
        while (!takeRequest()) {
            const MessageStream::Arrival arrival = m_stream.receive();
            if (arrival == MessageStream::Arrival::END) {
                close();
            }
            if (arrival != MessageStream::Arrival::BYTES) {
                return false;
            }
        }
    } catch (const PException& damage) {
        answer(Reply::error(damage));
        return false;
    }
    enter(Phase::WORKING);
    return true;
}

// True when the request is whole.
bool Client::takeRequest() {
    if (!m_hasTelegram && m_stream.hasMessage()) {
        takeTelegram();
    }
    if (!m_hasTelegram) {
        return false;
    }
    if (!m_request.hasPayload()) {
        return true;
    }
    if (!m_stream.hasMessage()) {
        return false;
    }
    takePayload();
    return true;
}

void Client::takeTelegram() {
    const ORVIpc::Message message = m_stream.take();
    if (message.payload.size() != TelegramLayout::SIZE) {
        throw boardError(ERROR_BAD_REQUEST, "wrong telegram size",
                         static_cast<std::uint32_t>(message.payload.size()));
    }
    m_request = {static_cast<std::uint32_t>(message.type), Telegram::parse(message.payload)};
    m_hasTelegram = true;
    enter(Phase::RECEIVING);  // the payload's time begins
}

void Client::takePayload() {
    ORVIpc::Message message = m_stream.take();
    const auto type = static_cast<std::uint32_t>(message.type);
    if (type != m_request.type) {
        throw boardError(ERROR_BAD_REQUEST, "the payload has another type than its telegram", type);
    }
    m_request.payload = std::move(message.payload);
}

void Client::expire() {
    if (m_phase == Phase::RECEIVING && m_hasTelegram) {
        answer(Reply::error(
            boardError(ERROR_BAD_REQUEST, "the payload did not come", m_request.type)));
    } else {
        close();
    }
}

void Client::answer(Reply reply, FaultKind fault) {
    if (fault == FaultKind::CRASH_AFTER) {
        std::raise(SIGKILL);
    }
    m_fault = fault;
    reply.damage(fault, m_request.type);
    std::string bytes = reply.frame();
    if (isCutShort(fault)) {
        bytes.resize(bytes.size() / 2);
    }
    enter(Phase::SENDING);
    m_stream.queue(bytes);
    try {
        send();
    } catch (const PException&) {
        close();
    }
}

void Client::send() {
    if (!m_stream.send()) {
        return;
    }
    switch (m_fault) {
        case FaultKind::EARLY_CLOSE:
            close();
            break;
        case FaultKind::STALL:
            ignore();
            break;
        case FaultKind::CRASH_MIDWAY:
        case FaultKind::CRASH_LATE:
            std::raise(SIGKILL);
            break;
        default:
            enter(Phase::ENDING);
    }
}

void Client::ignore() {
    enter(Phase::IGNORED);
}

// The client hangs up when it has read the answer. Hanging up first would cut off one that is
// still sending its request, and it would never see why that was refused.
void Client::awaitEnd() {
    const MessageStream::Arrival arrival = m_stream.receive();
    if (arrival == MessageStream::Arrival::END) {
        close();
    }
    if (!m_stream.isEmpty() && !m_hasLoggedExcess) {
        m_hasLoggedExcess = true;
        trace::OrvTrace(2, 1, 2).putLog(EXCESS_LEVEL, describeExcess(m_request.type));
    }
    m_stream.discard();
}

}  // namespace ORVLib::Board
