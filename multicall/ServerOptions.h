#pragma once

#include <string>

namespace ORVLib::MultiCall {

/// The command line of the page server.
struct ServerOptions {
    std::string socket;    ///< empty when a supervisor passes the socket
    std::string log;       ///< empty for standard error as it is
    int children = 64;     ///< pages at a time
    int queue = 128;       ///< connections that wait
    int requestTime = 60;  ///< seconds in which a request has to arrive
    int pageTime = 60;     ///< seconds in which a page has to end
    int largestHeader = 64 * 1024;
    int largestBody = 100 * 1024 * 1024;
    bool help = false;

    static const char* const HELP_TEXT;

    /// Throws std::invalid_argument with a line for the administrator.
    static ServerOptions parse(int argc, char** argv);
};

}  // namespace ORVLib::MultiCall
