#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "common/FileDescriptor.h"

namespace ORVLib::Board {

/// Checks and hashes passwords beside the daemon's loop: a hash is slow on purpose, and somebody
/// who tries passwords must not hold up pages.
class PasswordWorker {
public:
    struct Job {
        std::uint64_t ticket;
        std::string password;
        std::optional<std::string> hash;  ///< what the password must match, if anything
        std::string newPassword;  ///< to be hashed when the password matches; empty for none
    };

    struct Result {
        std::uint64_t ticket;
        bool failed;  ///< the system could not hash
        bool matches;
        std::string newHash;
    };

    PasswordWorker();
    ~PasswordWorker();

    PasswordWorker(const PasswordWorker&) = delete;
    PasswordWorker& operator=(const PasswordWorker&) = delete;

    /// Returns false when too many wait already.
    bool submit(Job job);

    /// Forgets a job that still waits.
    void cancel(std::uint64_t ticket);

    /// Readable when there are results.
    int getDescriptor() const { return m_wake.get(); }

    std::vector<Result> takeResults();

private:
    void work();

    FileDescriptor m_wake;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Job> m_jobs;
    std::vector<Result> m_results;
    bool m_ending = false;
    std::thread m_thread;
};

}  // namespace ORVLib::Board
