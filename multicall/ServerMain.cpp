#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "common/FileIo.h"
#include "multicall/PageServer.h"
#include "multicall/ServerLog.h"

namespace ORVLib::MultiCall {

namespace {

constexpr int EXIT_USAGE = 2;
constexpr mode_t OWNER_ONLY = S_IRUSR | S_IWUSR;

void print(int descriptor, const std::string& text) {
    if (!writeAll(descriptor, text)) {
        throw std::runtime_error("cannot write to standard output");
    }
}

/// A connection or file never gets the number of a standard descriptor that was closed.
void openStandardDescriptors() {
    int descriptor = 0;
    do {
        descriptor = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    ::close(descriptor);
}

/// A peer that is gone and a full file show as failed writes. The other signals have their default
/// effect in pages, whatever the program was started with.
void prepareSignals() {
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
        std::signal(signal, SIG_IGN);
    }
    for (const int signal : {SIGCHLD, SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGALRM}) {
        std::signal(signal, SIG_DFL);
    }
}

/// The log, not open without a path.
FileDescriptor openLog(const std::string& path) {
    FileDescriptor log;
    if (!path.empty()) {
        log = FileDescriptor(
            ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, OWNER_ONLY));
        if (!log.isOpen()) {
            throw std::runtime_error("cannot open the log " + path + ": " +
                                     std::generic_category().message(errno) +
                                     "; make its folder, or choose another file");
        }
    }
    return log;
}

/// A restarted server keeps its present log when the file cannot be opened.
FileDescriptor openLogAgain(const std::string& path) {
    try {
        return openLog(path);
    } catch (const std::runtime_error& error) {
        logError(error.what());
        return FileDescriptor();
    }
}

void useLog(FileDescriptor log) {
    if (log.isOpen() && ::dup2(log.get(), STDERR_FILENO) < 0) {
        throw std::system_error(errno, std::generic_category(), "cannot write to the log");
    }
}

Inheritance makeSocket(const ServerOptions& options) {
    if (options.socket.empty()) {
        throw std::invalid_argument("--scgi SOCKET is missing");
    }
    return {Listener::make(options.socket, options.queue), {}, false};
}

void serve(const ServerOptions& options, char** argv) {
    prepareSignals();
    std::optional<Inheritance> inheritance = takeInheritance(options.socket);
    const bool isRestart = inheritance && inheritance->isRestart;
    FileDescriptor log = isRestart ? openLogAgain(options.log) : openLog(options.log);
    if (!inheritance) {
        inheritance = makeSocket(options);
    }
    useLog(std::move(log));  // until here, problems show where the server was started
    PageServer server(options, std::move(*inheritance), argv);
    if (!isRestart) {
        print(STDOUT_FILENO, "orvguid: ready\n");
    }
    server.run();
}

}  // namespace

int servePages(int argc, char** argv) {
    openStandardDescriptors();
    try {
        const ServerOptions options = ServerOptions::parse(argc, argv);
        if (options.help) {
            print(STDOUT_FILENO, ServerOptions::HELP_TEXT);
        } else {
            serve(options, argv);
        }
        return EXIT_SUCCESS;
    } catch (const std::invalid_argument& error) {
        static_cast<void>(writeAll(STDERR_FILENO, "orvguid: " + std::string(error.what()) +
                                                      "; --help shows the options\n"));
        return EXIT_USAGE;
    } catch (const std::exception& error) {
        static_cast<void>(writeAll(STDERR_FILENO, "orvguid: " + std::string(error.what()) + "\n"));
        return EXIT_FAILURE;
    }
}

}  // namespace ORVLib::MultiCall
