#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>

#include "daemon/Daemon.h"
#include "daemon/Options.h"

namespace {

using ORVLib::Board::Daemon;
using ORVLib::Board::Options;

constexpr int EXIT_USAGE = 2;

// A peer that went and a full file show as failed writes. The signals that end the daemon are
// taken by its loop, and by no thread.
void prepareSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGTERM);
    sigaddset(&ending, SIGINT);
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);
}

void print(const std::string& text) {
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) {
        throw std::runtime_error("cannot write to standard output");
    }
}

void serve(const Options& options) {
    Daemon daemon(options);
    print("orvboardd: ready on " + options.socket + "\n");
    daemon.run();
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const Options options = Options::parse(argc, argv);
        if (options.help) {
            print(Options::HELP_TEXT);
            return EXIT_SUCCESS;
        }
        prepareSignals();
        serve(options);
        return EXIT_SUCCESS;
    } catch (const std::invalid_argument& error) {
        std::fprintf(stderr, "orvboardd: %s; --help shows the options\n", error.what());
        return EXIT_USAGE;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orvboardd: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
