#include "multicall/ServerOptions.h"

#include <getopt.h>

#include <climits>
#include <optional>
#include <stdexcept>

#include "common/ParseNumber.h"
#include "multicall/ScgiRequest.h"

namespace ORVLib::MultiCall {

namespace {

enum Option { HELP = 1, SCGI, LOG, FIRST_NUMBER };

constexpr option LONG_OPTIONS[] = {
    {"help", no_argument, nullptr, HELP},
    {"scgi", required_argument, nullptr, SCGI},
    {"log", required_argument, nullptr, LOG},
    {"children", required_argument, nullptr, FIRST_NUMBER},
    {"queue", required_argument, nullptr, FIRST_NUMBER + 1},
    {"request-time", required_argument, nullptr, FIRST_NUMBER + 2},
    {"page-time", required_argument, nullptr, FIRST_NUMBER + 3},
    {"largest-header", required_argument, nullptr, FIRST_NUMBER + 4},
    {"largest-body", required_argument, nullptr, FIRST_NUMBER + 5},
    {nullptr, 0, nullptr, 0},
};

constexpr int HOUR = 3600;

struct NumberOption {
    int ServerOptions::*member;
    int lowest;
    int highest;
};

// In the order of LONG_OPTIONS.
constexpr NumberOption NUMBERS[] = {
    {&ServerOptions::children, 1, 1000},
    {&ServerOptions::queue, 1, 65535},
    {&ServerOptions::requestTime, 1, HOUR},
    {&ServerOptions::pageTime, 1, HOUR},
    {&ServerOptions::largestHeader, 64, LARGEST_HEADER_LIMIT},
    {&ServerOptions::largestBody, 0, INT_MAX},
};

void takeNumber(ServerOptions& options, int index, const char* text) {
    const NumberOption& number = NUMBERS[index];
    const std::optional<int> value = parseNumber(text, number.lowest, number.highest);
    if (!value) {
        throw std::invalid_argument("--" + std::string(LONG_OPTIONS[LOG + index].name) +
                                    " takes a number from " + std::to_string(number.lowest) +
                                    " to " + std::to_string(number.highest) + ", not '" + text +
                                    "'");
    }
    options.*number.member = *value;
}

void take(ServerOptions& options, int option, const char* argument) {
    switch (option) {
        case HELP:
            options.help = true;
            return;
        case SCGI:
            options.socket = argument;
            return;
        case LOG:
            options.log = argument;
            return;
        default:
            takeNumber(options, option - FIRST_NUMBER, argument);
    }
}

}  // namespace

const char* const ServerOptions::HELP_TEXT =
    "usage: orvguid --scgi SOCKET [OPTION...]\n"
    "\n"
    "Runs the console's pages for a web server that speaks SCGI.\n"
    "\n"
    "  --scgi SOCKET           the socket for the web server; not needed, and not used, when a\n"
    "                          supervisor passes one (LISTEN_FDS)\n"
    "  --children N            pages at a time (64)\n"
    "  --queue N               connections that wait for a page to end (128)\n"
    "  --request-time SECONDS  time in which a request has to arrive (60)\n"
    "  --page-time SECONDS     time in which a page has to end (60)\n"
    "  --largest-header BYTES  of a request (65536)\n"
    "  --largest-body BYTES    of a request (104857600)\n"
    "  --log FILE              append the trace log to this file, not to standard error\n"
    "  --help                  print this text and exit\n"
    "\n"
    "SIGTERM ends the server after the running pages, SIGHUP starts it anew without a pause.\n";

ServerOptions ServerOptions::parse(int argc, char** argv) {
    ServerOptions options;
    opterr = 0;
    // The plus sign leaves the words in their order for a restart. The colon tells a missing
    // argument from an unknown option.
    for (int option = 0; (option = getopt_long(argc, argv, "+:", LONG_OPTIONS, nullptr)) != -1;) {
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
    return options;
}

}  // namespace ORVLib::MultiCall
