#include "multicall/ServerRestart.h"

#include <fcntl.h>
#include <sys/auxv.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "common/ParseNumber.h"

namespace ORVLib::MultiCall {

namespace {

using Clock = std::chrono::steady_clock;

// The numbers of the process, the listener, and its lock or -1, and for each page its process and
// its deadline in seconds. The first tells whether the variable is for this process, as LISTEN_PID
// does.
constexpr char STATE_NAME[] = "ORVGUID_STATE";
constexpr std::size_t STATE_WORDS = 3;
constexpr int SUPERVISORS_SOCKET = 3;

std::string takeVariable(const char* name) {
    const char* const value = std::getenv(name);
    std::string taken = value != nullptr ? value : "";
    ::unsetenv(name);
    return taken;
}

bool isThisProcess(std::string_view number) {
    return parseNumber(number, 1, INT_MAX) == ::getpid();
}

std::vector<std::string_view> splitWords(std::string_view text) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        words.push_back(word);
        text.remove_prefix(std::min(word.size() + 1, text.size()));
    }
    return words;
}

int descriptorOf(std::string_view word) {
    return parseNumber(word, 0, INT_MAX).value_or(-1);
}

std::optional<Inheritance> takeRestart(const std::string& path, const std::string& state) {
    const std::vector<std::string_view> words = splitWords(state);
    if (words.size() < STATE_WORDS || !isThisProcess(words[0])) {
        return std::nullopt;
    }
    Inheritance taken{Listener(path, descriptorOf(words[1]), descriptorOf(words[2])), {}, true};
    for (std::size_t i = STATE_WORDS; i + 1 < words.size(); i += 2) {
        const std::optional<int> process = parseNumber(words[i], 1, INT_MAX);
        const std::optional<int> deadline = parseNumber(words[i + 1], 0, INT_MAX);
        if (process && deadline) {
            taken.pages[*process] = Clock::time_point(std::chrono::seconds(*deadline));
        }
    }
    return taken;
}

void setInherited(int descriptor, bool isInherited) {
    if (descriptor >= 0) {
        ::fcntl(descriptor, F_SETFD, isInherited ? 0 : FD_CLOEXEC);
    }
}

void setInherited(const Listener& listener, bool isInherited) {
    setInherited(listener.getDescriptor(), isInherited);
    setInherited(listener.getLock(), isInherited);
}

}  // namespace

std::optional<Inheritance> takeInheritance(const std::string& path) {
    const std::string state = takeVariable(STATE_NAME);
    const std::string process = takeVariable("LISTEN_PID");
    const std::string count = takeVariable("LISTEN_FDS");
    takeVariable("LISTEN_FDNAMES");
    if (std::optional<Inheritance> taken = takeRestart(path, state)) {
        return taken;
    }
    if (!isThisProcess(process)) {
        return std::nullopt;
    }
    if (count != "1") {
        throw std::runtime_error("LISTEN_FDS is '" + count +
                                 "': set up exactly one socket in the supervisor");
    }
    return Inheritance{Listener(path, SUPERVISORS_SOCKET, -1), {}, false};
}

void executeAnew(const Listener& listener, const PageDeadlines& pages, char** argv) {
    std::string state = std::to_string(::getpid()) + ' ' +
                        std::to_string(listener.getDescriptor()) + ' ' +
                        std::to_string(listener.getLock());
    for (const auto& [process, deadline] : pages) {
        const auto time = std::chrono::ceil<std::chrono::seconds>(deadline.time_since_epoch());
        state += ' ' + std::to_string(process) + ' ' + std::to_string(time.count());
    }
    ::setenv(STATE_NAME, state.c_str(), 1);
    setInherited(listener, true);
    // The path that the program was executed by leads to a newer version, if there is one.
    const auto path = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));  // NOLINT
    ::execv(path, argv);
    const int error = errno;
    setInherited(listener, false);
    ::unsetenv(STATE_NAME);
    errno = error;
}

}  // namespace ORVLib::MultiCall
