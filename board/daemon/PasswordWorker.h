#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "common/FileDescriptor.h"

namespace ORVLib::Board {

/// Checks and hashes passwords on a thread of its own, one at a time: a hash is slow on purpose,
/// and somebody who tries passwords must not delay pages.
class PasswordWorker {
public:
    struct Job {
        std::uint64_t ticket;
        std::string password;
        std::optional<std::string> hash;  ///< the password must match it; none: not compared
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

    /// True when start() may be called.
    bool isIdle() const { return m_idle; }

    /// Begins with a job. REQUIRES: isIdle().
    void start(Job job);

    /// Readable when there is a result.
    int getDescriptor() const { return m_wake.get(); }

    /// The result of the job, if it is ready; the worker is idle then.
    std::optional<Result> takeResult();

private:
    void work();

    FileDescriptor m_wake;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<Job> m_job;        ///< to be begun
    std::optional<Result> m_result;  ///< to be taken
    bool m_ending = false;
    bool m_idle = true;  ///< of the daemon's loop alone
    std::thread m_thread;
};

}  // namespace ORVLib::Board
