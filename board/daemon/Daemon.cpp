#include "daemon/Daemon.h"

#include <poll.h>
#include <sys/signalfd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <vector>

#include "item/BoardClock.h"
#include "item/Firmware.h"
#include "orv/OrvTrace.h"
#include "protocol/Digest.h"
#include "wire/Protocol.h"
#include "wire/Random.h"

namespace ORVLib::Board {

namespace {

constexpr std::size_t MAX_CLIENTS = 128;
// So few at a time that everybody is listened to several times before being the oldest.
constexpr std::size_t ACCEPT_BATCH = 16;
constexpr std::chrono::seconds ACCEPT_PAUSE{1};

const char* const STAGE_SUFFIX = ".firmware";
const char* const MARKER_SUFFIX = ".ended";

// The entries of poll() before those of the clients.
enum { SIGNALS, SERVER, PASSWORDS, FIRST_CLIENT };

void putLog(const std::string& text) {
    trace::OrvTrace(2, 1, 3).putLog(0, text);
}

FileDescriptor openSignals() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGINT);
    FileDescriptor signals(::signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!signals.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "cannot wait for signals");
    }
    return signals;
}

}  // namespace

Daemon::Daemon(const Options& options)
    : m_faults(options.faults),
      m_clientTimeout(options.clientTimeout),
      m_signals(openSignals()),
      m_server(options.socket),
      m_state(options.state),
      m_sessions(m_state, options.sessionTimeout, options.state + MARKER_SUFFIX),
      m_stage(options.state + STAGE_SUFFIX),
      m_installation(m_state),
      m_probation(m_state),
      m_requests(getParts()),
      m_waiting(randomBytes(Digest::SIZE)),
      m_nextStore(Clock::now() + Sessions::STORE_INTERVAL),
      m_nextAccept(Clock::now()) {
    BoardClock::start(m_state);
    noteInterruption();
    storeSessions();
}

void Daemon::run() {
    while (!m_stopped) {
        waitAndServe();
        expireClients();
        expirePasswordChecks();
        removeClosed();
        startPasswordCheck();
        finishInstallation();
        tryProbation(&Probation::proceed);
        if (Clock::now() >= m_nextStore) {
            storeSessions();
        }
        Firmware::dropOrphan(getParts());
    }
    tryProbation(&Probation::storeRest);
    storeSessions();
}

int Daemon::getWaitMs() const {
    Clock::time_point next = std::min(m_nextStore, m_installation.getDeadline());
    next = std::min(next, m_probation.getDeadline());
    if (m_nextAccept > Clock::now()) {
        next = std::min(next, m_nextAccept);
    }
    next = std::min(next, m_waiting.getDue(m_passwords.isIdle()));
    for (const Client& client : m_clients) {
        next = std::min(next, client.getDeadline());
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
    return static_cast<int>(std::max(left, left.zero()).count());
}

void Daemon::waitAndServe() {
    const bool accepts = Clock::now() >= m_nextAccept;
    std::vector<pollfd> entries = {
        {m_signals.get(), POLLIN, 0},
        {accepts ? m_server.getDescriptor() : -1, POLLIN, 0},
        {m_passwords.getDescriptor(), POLLIN, 0},
    };
    for (const Client& client : m_clients) {
        entries.push_back({client.getDescriptor(), client.getEvents(), 0});
    }
    if (::poll(entries.data(), entries.size(), getWaitMs()) < 0) {
        if (errno == EINTR) {
            return;
        }
        throw std::system_error(errno, std::generic_category(), "poll");
    }
    m_stopped = entries[SIGNALS].revents != 0;
    auto entry = entries.cbegin() + FIRST_CLIENT;
    for (Client& client : m_clients) {
        if ((entry++)->revents != 0) {
            serve(client);
        }
    }
    if (entries[PASSWORDS].revents != 0) {
        finishPasswordCheck();
    }
    if (entries[SERVER].revents != 0) {
        acceptClients();
    }
}

void Daemon::acceptClients() {
    try {
        for (std::size_t i = 0; i < ACCEPT_BATCH; ++i) {
            FileDescriptor socket = m_server.accept();
            if (!socket.isOpen()) {
                return;
            }
            addClient(std::move(socket));
        }
    } catch (const std::system_error& error) {
        // Clients that end give descriptors back; until then the others are served.
        putLog(error.what());
        m_nextAccept = Clock::now() + ACCEPT_PAUSE;
    }
}

void Daemon::addClient(FileDescriptor socket) {
    if (m_clients.size() >= MAX_CLIENTS) {
        dropOldest();
    }
    m_clients.emplace_back(m_nextTicket++, std::move(socket), m_clientTimeout);
    serve(m_clients.back());
}

// A client that floods the daemon with connections loses its own: an exchange ends long before its
// connection is the oldest. Fewer passwords wait than there are places, so that one can always be
// dropped.
void Daemon::dropOldest() {
    auto oldest = m_clients.end();
    for (auto at = m_clients.begin(); at != m_clients.end(); ++at) {
        if (!at->isWorkedOn() &&
            (oldest == m_clients.end() || at->getSince() < oldest->getSince())) {
            oldest = at;
        }
    }
    if (oldest != m_clients.end()) {
        m_clients.erase(oldest);
    }
}

void Daemon::serve(Client& client) {
    if (client.isOpen() && client.proceed()) {
        execute(client);
    }
}

void Daemon::execute(Client& client) {
    const Request& request = client.getRequest();
    const FaultKind fault = m_faults.find(request.type);
    if (fault == FaultKind::SILENCE) {
        client.ignore();
    } else if (fault == FaultKind::CRASH_BEFORE) {
        std::raise(SIGKILL);
    } else if (fault == FaultKind::ERROR) {
        client.answer(Reply::error(boardError(ERROR_BOARD_FAILURE, "a fault was asked for",
                                              request.type, ACTION_INJECTED)));
    } else if (request.hasPassword()) {
        awaitPasswordCheck(client);
    } else {
        client.answer(m_requests.handle(request), fault);
    }
}

FaultKind Daemon::getDamage(const Client& client) const {
    return m_faults.find(client.getRequest().type);
}

void Daemon::awaitPasswordCheck(Client& client) {
    const std::uint64_t ticket = client.getTicket();
    try {
        Requests::PasswordCheck check = m_requests.beginPasswordCheck(client.getRequest());
        const auto ousted = m_waiting.add({{ticket, check.password, check.hash, check.newPassword},
                                           check.account,
                                           check.source,
                                           check.isKnown,
                                           !check.hash},
                                          Clock::now());
        m_passwordChecks[ticket] = std::move(check);
        if (ousted) {
            refuseAsBusy(*ousted);
        }
    } catch (const PException& refusal) {
        client.answer(Reply::error(refusal), getDamage(client));
    }
}

void Daemon::expirePasswordChecks() {
    for (const std::uint64_t ticket : m_waiting.expire(Clock::now())) {
        refuseAsBusy(ticket);
    }
}

void Daemon::refuseAsBusy(std::uint64_t ticket) {
    m_passwordChecks.erase(ticket);
    if (Client* const client = findWorkedOn(ticket)) {
        client->answer(
            Reply::error(boardError(ERROR_BUSY, "too many passwords to check at a time")),
            getDamage(*client));
    }
}

void Daemon::startPasswordCheck() {
    if (!m_passwords.isIdle()) {
        return;
    }
    if (auto job = m_waiting.take(Clock::now())) {
        m_passwords.start(std::move(*job));
    }
}

void Daemon::finishPasswordCheck() {
    const auto result = m_passwords.takeResult();
    if (!result) {
        return;
    }
    const auto check = m_passwordChecks.extract(result->ticket);
    Client* const client = findWorkedOn(result->ticket);
    if (client == nullptr) {
        m_waiting.finish(false);
        return;
    }
    Reply reply = endPasswordCheck(client->getRequest(), check.mapped(), *result);
    m_waiting.finish(reply.type != TYPE_ERROR);
    client->answer(std::move(reply), getDamage(*client));
}

Reply Daemon::endPasswordCheck(const Request& request, const Requests::PasswordCheck& check,
                               const PasswordWorker::Result& result) {
    if (result.failed) {
        return Reply::error(
            boardError(ERROR_BOARD_FAILURE, "cannot hash a password", request.type, ACTION_STATE));
    }
    return m_requests.endPasswordCheck(request, check, result.matches, result.newHash);
}

Client* Daemon::findWorkedOn(std::uint64_t ticket) {
    const auto found =
        std::find_if(m_clients.begin(), m_clients.end(), [ticket](const Client& candidate) {
            return candidate.getTicket() == ticket && candidate.isWorkedOn();
        });
    return found != m_clients.end() ? &*found : nullptr;
}

void Daemon::expireClients() {
    const Clock::time_point now = Clock::now();
    for (Client& client : m_clients) {
        if (client.isOpen() && client.getDeadline() <= now) {
            client.expire();
        }
    }
}

void Daemon::removeClosed() {
    m_clients.remove_if([this](const Client& client) {
        if (client.isOpen()) {
            return false;
        }
        if (m_passwordChecks.erase(client.getTicket()) != 0) {
            m_waiting.cancel(client.getTicket());  // others wait for a place
        }
        return true;
    });
}

void Daemon::noteInterruption() {
    try {
        m_installation.noteInterruption();
    } catch (const DatabaseError& error) {
        putLog(std::string("cannot store that an installation was interrupted: ") + error.what());
    }
}

void Daemon::finishInstallation() {
    try {
        m_installation.finish();
    } catch (const DatabaseError& error) {
        putLog(std::string("cannot store what was installed: ") + error.what());
    }
}

void Daemon::tryProbation(void (Probation::*step)()) {
    try {
        (m_probation.*step)();
    } catch (const DatabaseError& error) {
        putLog(std::string("cannot store the probation of the network: ") + error.what());
    }
}

void Daemon::storeSessions() {
    m_nextStore = Clock::now() + Sessions::STORE_INTERVAL;
    try {
        m_sessions.store();
    } catch (const std::runtime_error& error) {
        putLog(std::string("cannot store when sessions were used: ") + error.what());
    }
}

}  // namespace ORVLib::Board
