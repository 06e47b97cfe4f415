#pragma once

#include <chrono>
#include <string>

#include "daemon/Fault.h"

namespace ORVLib::Board {

/// What the daemon was started with.
struct Options {
    std::string state;
    std::string socket;
    std::chrono::seconds sessionTimeout{1800};
    std::chrono::milliseconds clientTimeout{10000};
    Faults faults;
    bool help = false;

    static const char* const HELP_TEXT;

    /// Throws std::invalid_argument with a line for the administrator.
    static Options parse(int argc, char** argv);
};

}  // namespace ORVLib::Board
