#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>

#include "multicall/Listener.h"

/// A server that is executed anew keeps its process, its listener and its running pages.
namespace ORVLib::MultiCall {

/// The processes of pages, each with the time at which it is to be killed. The clock is the same
/// for all processes of a machine.
using PageDeadlines = std::map<pid_t, std::chrono::steady_clock::time_point>;

/// What a server has from before its start.
struct Inheritance {
    Listener listener;
    PageDeadlines pages;
    bool isRestart;
};

/// Takes over from the server that this process ran before, or the socket of a supervisor, or
/// nothing. Removes the variables for that from the environment, so that pages do not see them.
/// `path` is that of the socket file. Throws std::runtime_error for a socket that cannot be used.
std::optional<Inheritance> takeInheritance(const std::string& path);

/// Executes this program's file, which may be a newer one now, with the same arguments. Returns
/// only when that fails, with errno set. The server can then go on.
void executeAnew(const Listener& listener, const PageDeadlines& pages, char** argv);

}  // namespace ORVLib::MultiCall
