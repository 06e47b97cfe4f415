#pragma once

#include <chrono>
#include <csignal>

#include "common/FileDescriptor.h"
#include "multicall/Listener.h"
#include "multicall/ServerOptions.h"
#include "multicall/ServerRestart.h"

namespace ORVLib::MultiCall {

/// Runs the pages of this program for a web server that speaks SCGI, with a process for each
/// request.
///
/// The server itself accepts connections, forks and collects the processes that ended. It reads
/// nothing that a client sends, so no request can leave anything in it for the next.
class PageServer {
public:
    /// `argv` are the words to execute the program anew with.
    PageServer(const ServerOptions& options, Inheritance&& inheritance, char** argv);

    /// Returns after SIGTERM or SIGINT, when the pages of all accepted connections have ended.
    void run();

private:
    using Clock = std::chrono::steady_clock;

    bool hasRoom() const;
    int getWaitMs() const;
    void waitAndServe();
    void takeSignals();
    void stop();
    void acceptConnection();
    void startPage();
    void collectPages();
    void noteEnd(const siginfo_t& end);
    void killOverdue();
    void restart();

    ServerOptions m_options;
    Listener m_listener;
    char** m_argv;
    FileDescriptor m_signals;
    FileDescriptor m_connection;  // accepted, and without a process as yet
    PageDeadlines m_pages;
    Clock::time_point m_nextAttempt;
    bool m_isStopped = false;
    bool m_isRestartDue = false;
};

/// The main() of the page server. Returns the exit status.
int servePages(int argc, char** argv);

}  // namespace ORVLib::MultiCall
