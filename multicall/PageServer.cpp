#include "multicall/PageServer.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <iterator>
#include <system_error>

#include "multicall/PageProcess.h"
#include "multicall/ServerLog.h"

namespace ORVLib::MultiCall {

namespace {

constexpr int WATCHED_SIGNALS[] = {SIGCHLD, SIGTERM, SIGINT, SIGHUP};
// A process that ends by one of these has a fault that may be exploited by guessing addresses.
constexpr int CRASHES[] = {SIGSEGV, SIGBUS, SIGILL, SIGABRT, SIGFPE};

// After a failure for want of processes, descriptors or memory.
constexpr std::chrono::seconds ATTEMPT_PAUSE{1};
// A page whose time is over ends by SIGALRM. One that cannot is killed so much later.
constexpr std::chrono::seconds KILL_DELAY{10};

sigset_t watchedSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : WATCHED_SIGNALS) {
        sigaddset(&set, signal);
    }
    return set;
}

FileDescriptor openSignals() {
    const sigset_t set = watchedSignals();
    FileDescriptor signals(::signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!signals.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "cannot wait for signals");
    }
    ::sigprocmask(SIG_BLOCK, &set, nullptr);
    return signals;
}

/// Delivers signals to a page as to any program.
void unblockSignals() {
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// The name of a process that has ended and is not yet collected.
std::string nameOf(pid_t process) {
    std::string name;
    std::getline(std::ifstream("/proc/" + std::to_string(process) + "/comm"), name);
    return name;
}

}  // namespace

PageServer::PageServer(const ServerOptions& options, Inheritance&& inheritance, char** argv)
    : m_options(options),
      m_listener(std::move(inheritance.listener)),
      m_argv(argv),
      m_signals(openSignals()),
      m_pages(std::move(inheritance.pages)),
      m_nextAttempt(Clock::now()) {}

void PageServer::run() {
    collectPages();
    while (m_listener.isOpen() || m_connection.isOpen() || !m_pages.empty()) {
        waitAndServe();
    }
}

bool PageServer::hasRoom() const {
    return m_pages.size() < static_cast<std::size_t>(m_options.children) &&
           Clock::now() >= m_nextAttempt;
}

int PageServer::getWaitMs() const {
    Clock::time_point next = Clock::time_point::max();
    if (m_nextAttempt > Clock::now()) {
        next = m_nextAttempt;
    }
    for (const auto& [page, deadline] : m_pages) {
        next = std::min(next, deadline);
    }
    if (next == Clock::time_point::max()) {
        return -1;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
    return static_cast<int>(std::max(left, left.zero()).count());
}

void PageServer::waitAndServe() {
    const bool accepts = hasRoom() && !m_connection.isOpen();
    pollfd entries[] = {{m_signals.get(), POLLIN, 0},
                        {accepts ? m_listener.getDescriptor() : -1, POLLIN, 0}};
    if (::poll(entries, std::size(entries), getWaitMs()) < 0 && errno != EINTR) {
        throw std::system_error(errno, std::generic_category(), "poll");
    }
    if (entries[0].revents != 0) {
        takeSignals();
    }
    if (entries[1].revents != 0 && m_listener.isOpen()) {
        acceptConnection();
    }
    if (m_connection.isOpen() && hasRoom()) {
        startPage();
    }
    killOverdue();
    if (m_isRestartDue && !m_isStopped && !m_connection.isOpen()) {
        restart();
    }
}

void PageServer::takeSignals() {
    signalfd_siginfo signal{};
    while (::read(m_signals.get(), &signal, sizeof signal) == sizeof signal) {
        switch (static_cast<int>(signal.ssi_signo)) {
            case SIGCHLD:
                collectPages();
                break;
            case SIGHUP:
                m_isRestartDue = true;
                break;
            default:
                stop();
        }
    }
}

void PageServer::stop() {
    if (!m_isStopped) {
        m_isStopped = true;
        m_listener.endQueue();
    }
}

void PageServer::acceptConnection() {
    try {
        m_connection = m_listener.accept();
    } catch (const std::system_error& error) {
        logError(error.what());
        m_nextAttempt = Clock::now() + ATTEMPT_PAUSE;
    }
}

void PageServer::startPage() {
    const pid_t page = ::fork();
    if (page == 0) {
        m_signals.close();
        m_listener.close();
        unblockSignals();
        servePage(std::move(m_connection), m_options);
    }
    if (page < 0) {
        logError("cannot start a process for a request, which waits: " +
                 std::generic_category().message(errno));
        m_nextAttempt = Clock::now() + ATTEMPT_PAUSE;
        return;
    }
    m_connection.close();
    const std::chrono::seconds longest(m_options.requestTime + m_options.pageTime);
    m_pages.emplace(page, Clock::now() + longest + KILL_DELAY);
}

void PageServer::collectPages() {
    siginfo_t end{};
    while (::waitid(P_ALL, 0, &end, WEXITED | WNOHANG | WNOWAIT) == 0 && end.si_pid != 0) {
        noteEnd(end);
        ::waitpid(end.si_pid, nullptr, 0);
        m_pages.erase(end.si_pid);
        end = {};
    }
}

void PageServer::noteEnd(const siginfo_t& end) {
    if (end.si_code == CLD_EXITED) {
        return;
    }
    const int signal = end.si_status;
    logError("process " + std::to_string(end.si_pid) + " of " + nameOf(end.si_pid) +
             " was ended by signal " + std::to_string(signal) + " (" + ::strsignal(signal) + ")");
    // Pages share the addresses and the stack protector's value of the server. New ones make what
    // an attacker learned from a crash worthless.
    m_isRestartDue = m_isRestartDue ||
                     std::find(std::begin(CRASHES), std::end(CRASHES), signal) != std::end(CRASHES);
}

void PageServer::killOverdue() {
    for (auto& [page, deadline] : m_pages) {
        if (Clock::now() >= deadline) {
            ::kill(page, SIGKILL);
            deadline = Clock::now() + KILL_DELAY;
        }
    }
}

void PageServer::restart() {
    m_isRestartDue = false;
    executeAnew(m_listener, m_pages, m_argv);
    logError("cannot execute the page server anew: " + std::generic_category().message(errno));
}

}  // namespace ORVLib::MultiCall
