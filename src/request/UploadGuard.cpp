#include "request/UploadGuard.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace ORVLib::Gui::UploadGuard {

namespace {

constexpr int NAME_ATTEMPTS = 100;
constexpr mode_t OWNER_ONLY = 0600;
constexpr int ENDING_SIGNALS[] = {SIGTERM, SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGALRM, SIGABRT,
                                  SIGSEGV, SIGBUS, SIGFPE, SIGILL,  SIGSYS,  SIGXCPU};

// Read by a signal handler: the guarded file's name, empty for none, and the process it belongs to.
char guardedPath[128];
pid_t guardingProcess = 0;

constexpr std::size_t HANDLER_STACK_SIZE = 65536;

/// Deletes the file in the process that made it, not in its children.
void removeGuarded() {
    if (guardedPath[0] != '\0' && guardingProcess == getpid()) {
        unlink(guardedPath);
    }
}

extern "C" void removeAndEnd(int signal) {
    removeGuarded();
    raise(signal);  // delivered when the handler returns, with its default effect
}

/// Blocks the ending signals during its lifetime.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t ending;
        sigemptyset(&ending);
        for (const int signal : ENDING_SIGNALS) {
            sigaddset(&ending, signal);
        }
        sigprocmask(SIG_BLOCK, &ending, &m_before);
    }
    ~SignalsBlocked() { sigprocmask(SIG_SETMASK, &m_before, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t m_before{};
};

/// Gives the handlers a stack of their own, which they need when the process's stack is full,
/// unless the program has done so. It is mapped here: as data of the library, every page would pay
/// for it.
void provideStack() {
    stack_t stack{};
    if (sigaltstack(nullptr, &stack) != 0 || (stack.ss_flags & SS_DISABLE) == 0) {
        return;
    }
    stack.ss_sp = mmap(nullptr, HANDLER_STACK_SIZE, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    stack.ss_size = HANDLER_STACK_SIZE;
    stack.ss_flags = 0;
    if (stack.ss_sp != MAP_FAILED) {
        sigaltstack(&stack, nullptr);
    }
}

void handleEnds() {
    std::atexit(removeGuarded);
    provideStack();
    for (const int signal : ENDING_SIGNALS) {
        struct sigaction action {};
        if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_DFL) {
            action.sa_handler = removeAndEnd;
            action.sa_flags = static_cast<int>(SA_RESETHAND | SA_ONSTACK);
            sigaction(signal, &action, nullptr);
        }
    }
    // Above the limit on the size of a file, a write fails and does not end the process.
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace

int create(std::string (*nextName)(), std::string& path) {
    if (guardingProcess != getpid()) {
        handleEnds();
    }
    const SignalsBlocked blocked;
    int descriptor = -1;
    int attempts = 0;
    do {
        path = nextName();
        descriptor =
            open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, OWNER_ONLY);
    } while (descriptor < 0 && errno == EEXIST && ++attempts < NAME_ATTEMPTS);
    if (descriptor >= 0) {
        std::strncpy(guardedPath, path.c_str(), sizeof guardedPath - 1);
        guardingProcess = getpid();
    }
    return descriptor;
}

void release() {
    guardedPath[0] = '\0';
}

}  // namespace ORVLib::Gui::UploadGuard
