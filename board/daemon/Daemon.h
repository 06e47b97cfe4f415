#pragma once

#include <chrono>
#include <cstdint>
#include <list>
#include <map>

#include "IpcServer.h"
#include "common/FileDescriptor.h"
#include "daemon/Client.h"
#include "daemon/Options.h"
#include "daemon/PasswordQueue.h"
#include "daemon/PasswordWorker.h"
#include "daemon/Requests.h"
#include "item/FirmwareStage.h"
#include "item/Installation.h"
#include "item/Probation.h"
#include "state/BoardState.h"
#include "state/Sessions.h"

namespace ORVLib::Board {

/// Serves all clients from one loop that never waits for a client. Passwords are checked on a
/// thread beside it; writing a setting delays the loop by one flush to the disk.
class Daemon {
public:
    /// Clients can connect once this returns. Throws std::runtime_error, with a line for the
    /// administrator. REQUIRES: SIGTERM and SIGINT are blocked.
    explicit Daemon(const Options& options);

    /// Serves until SIGTERM or SIGINT.
    void run();

private:
    using Clock = Client::Clock;
    using Clients = std::list<Client>;

    int getWaitMs() const;
    void waitAndServe();
    void acceptClients();
    void addClient(FileDescriptor socket);
    void dropOldest();
    void serve(Client& client);
    void execute(Client& client);
    void awaitPasswordCheck(Client& client);
    void startPasswordCheck();
    void finishPasswordCheck();
    Reply endPasswordCheck(const Request& request, const Requests::PasswordCheck& check,
                           const PasswordWorker::Result& result);
    void expirePasswordChecks();
    void refuseAsBusy(std::uint64_t ticket);
    Client* findWorkedOn(std::uint64_t ticket);
    void expireClients();
    void removeClosed();
    void noteInterruption();
    void finishInstallation();
    void tryProbation(void (Probation::*step)());
    void storeSessions();

    Parts getParts() { return {m_state, m_sessions, m_stage, m_installation, m_probation}; }
    FaultKind getDamage(const Client& client) const;

    Faults m_faults;
    std::chrono::milliseconds m_clientTimeout;
    FileDescriptor m_signals;
    ORVIpc::IpcServer m_server;
    BoardState m_state;
    Sessions m_sessions;
    FirmwareStage m_stage;
    Installation m_installation;
    Probation m_probation;
    Requests m_requests;
    PasswordQueue m_waiting;
    PasswordWorker m_passwords;
    Clients m_clients;
    std::map<std::uint64_t, Requests::PasswordCheck> m_passwordChecks;  ///< by client
    std::uint64_t m_nextTicket = 1;
    Clock::time_point m_nextStore;
    Clock::time_point m_nextAccept;
    bool m_stopped = false;
};

}  // namespace ORVLib::Board
