#include "daemon/Options.h"

#include <getopt.h>

#include <stdexcept>

#include "IpcSocketPath.h"
#include "common/ParseNumber.h"

namespace ORVLib::Board {

namespace {

enum Option { STATE = 1, SOCKET, SESSION_TIMEOUT, CLIENT_TIMEOUT, FAULT, HELP };

constexpr option LONG_OPTIONS[] = {
    {"state", required_argument, nullptr, STATE},
    {"socket", required_argument, nullptr, SOCKET},
    {"session-timeout", required_argument, nullptr, SESSION_TIMEOUT},
    {"client-timeout", required_argument, nullptr, CLIENT_TIMEOUT},
    {"fault", required_argument, nullptr, FAULT},
    {"help", no_argument, nullptr, HELP},
    {nullptr, 0, nullptr, 0},
};

constexpr int MAX_SESSION_TIMEOUT_S = 10 * 366 * 24 * 3600;
constexpr int MAX_CLIENT_TIMEOUT_MS = 3600 * 1000;

int readTimeout(const char* name, const char* text, int highest) {
    const auto number = parseNumber(text, 1, highest);
    if (!number) {
        throw std::invalid_argument(std::string(name) + " takes a number from 1 to " +
                                    std::to_string(highest) + ", not '" + text + "'");
    }
    return *number;
}

void take(Options& options, int option, const char* argument) {
    switch (option) {
        case STATE:
            options.state = argument;
            return;
        case SOCKET:
            options.socket = argument;
            return;
        case SESSION_TIMEOUT:
            options.sessionTimeout = std::chrono::seconds(
                readTimeout("--session-timeout", argument, MAX_SESSION_TIMEOUT_S));
            return;
        case CLIENT_TIMEOUT:
            options.clientTimeout = std::chrono::milliseconds(
                readTimeout("--client-timeout", argument, MAX_CLIENT_TIMEOUT_MS));
            return;
        case FAULT:
            options.faults.add(argument);
            return;
        default:
            options.help = true;
            return;
    }
}

}  // namespace

const char* const Options::HELP_TEXT =
    "usage: orvboardd --state FILE [OPTION...]\n"
    "\n"
    "The back-end daemon of a simulated board.\n"
    "\n"
    "  --state FILE                 users, settings, sessions and event log; created if missing\n"
    "  --socket PATH                the socket for pages\n"
    "  --session-timeout SECONDS    time after which an unused session ends (1800)\n"
    "  --client-timeout MILLISECONDS\n"
    "                               time that a client may keep the daemon waiting (10000)\n"
    "  --fault PROCEDURE:KIND       make an operation misbehave; may be repeated\n"
    "      PROCEDURE  getLanguage, login, logout, checkSession, getUserInfo,\n"
    "                 an item's ID in hexadecimal, or any\n"
    "      KIND       error, wrong-type, short-header, short-payload, oversized-payload,\n"
    "                 silence, early-close, stall, crash-before, crash-after,\n"
    "                 crash-midway, crash-late\n"
    "  --help                       print this text and exit\n";

Options Options::parse(int argc, char** argv) {
    Options options;
    opterr = 0;
    int index = 0;
    // The leading colon tells a missing argument from an unknown option.
    for (int option = 0; (option = getopt_long(argc, argv, ":", LONG_OPTIONS, &index)) != -1;) {
        if (option == ':' || option == '?') {
            const char* const problem =
                option == ':' ? "an argument is missing after " : "unknown option ";
            throw std::invalid_argument(problem + std::string(argv[optind - 1]));
        }
        take(options, option, optarg);
    }
    if (optind < argc) {
        throw std::invalid_argument("unexpected argument '" + std::string(argv[optind]) + "'");
    }
    if (options.state.empty() && !options.help) {
        throw std::invalid_argument("--state FILE is missing");
    }
    if (options.state == ":memory:") {  // SQLite's name for a database that is not stored
        throw std::invalid_argument("--state takes a file, not ':memory:'");
    }
    if (options.socket.empty()) {
        options.socket = ORVIpc::getSocketPath();
    }
    return options;
}

}  // namespace ORVLib::Board
