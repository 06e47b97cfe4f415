#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "MessageStream.h"
#include "daemon/Reply.h"
#include "daemon/Request.h"

namespace ORVLib::Board {

/// One connection, for one exchange: a request comes in, is worked on, is answered, and then the
/// client hangs up. No operation waits, and each step but the work has a time limit.
class Client {
public:
    using Clock = std::chrono::steady_clock;

    /// `ticket` is a number no other client ever has.
    Client(std::uint64_t ticket, FileDescriptor socket, std::chrono::milliseconds timeLimit);

    std::uint64_t getTicket() const { return m_ticket; }
    int getDescriptor() const { return m_stream.getDescriptor(); }
    const Request& getRequest() const { return m_request; }

    /// True until the connection is closed.
    bool isOpen() const { return m_phase != Phase::CLOSED; }
    bool isWorkedOn() const { return m_phase == Phase::WORKING; }

    /// When the present step began.
    Clock::time_point getSince() const { return m_since; }
    /// When the present step must have ended.
    Clock::time_point getDeadline() const;

    /// What poll() is to wait for.
    short getEvents() const;

    /// Continues the present step as far as possible without waiting. Returns true when the request
    /// is complete: the client is then worked on until answer() or ignore().
    bool proceed();

    /// Ends a step that took too long. A request whose payload never came is answered.
    void expire();

    /// Sends the reply with the damage of the fault.
    void answer(Reply reply, FaultKind fault = FaultKind::NONE);

    /// Never answers: the client is kept until it hangs up.
    void ignore();

private:
    enum class Phase { RECEIVING, WORKING, SENDING, ENDING, IGNORED, CLOSED };

    void enter(Phase phase);
    void close() { m_phase = Phase::CLOSED; }
    bool receiveRequest();
    bool takeRequest();
    void takeTelegram();
    void takePayload();
    void send();
    void awaitEnd();

    std::uint64_t m_ticket;
    ORVIpc::MessageStream m_stream;
    std::chrono::milliseconds m_timeLimit;
    Phase m_phase = Phase::RECEIVING;
    Clock::time_point m_since = Clock::now();
    bool m_hasTelegram = false;
    FaultKind m_fault = FaultKind::NONE;  ///< shows when the answer is sent
    bool m_hasLoggedExcess = false;
    Request m_request;
};

}  // namespace ORVLib::Board
