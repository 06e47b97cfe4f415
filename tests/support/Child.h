#pragma once

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

/// What a process left: its exit status (-1 after a signal), its output and its trace log.
struct ChildResult {
    int status = -1;
    std::string output;
    std::string trace;
};

inline std::string contentOf(int file) {
    std::string content;
    char block[4096];
    lseek(file, 0, SEEK_SET);
    for (ssize_t n = 0; (n = read(file, block, sizeof block)) > 0;) {
        content.append(block, static_cast<std::size_t>(n));
    }
    close(file);
    return content;
}

/// Runs `work` in a process of its own, as a page program runs, which exits with what it returns.
template <typename Work>
ChildResult inChild(Work work) {
    const int output = memfd_create("output", MFD_CLOEXEC);
    const int trace = memfd_create("trace", MFD_CLOEXEC);
    const pid_t child = fork();
    if (child == 0) {
        dup2(output, STDOUT_FILENO);
        dup2(trace, STDERR_FILENO);
        setenv("ORV_TRACE_LEVEL", "200", 1);
        std::exit(work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(output), contentOf(trace)};
}
