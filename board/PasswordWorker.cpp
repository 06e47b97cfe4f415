#include "PasswordWorker.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <system_error>

#include "Password.h"
#include "orv/OrvTrace.h"

namespace ORVLib::Board {

namespace {

constexpr std::size_t MAX_WAITING = 32;

PasswordWorker::Result carryOut(const PasswordWorker::Job& job) {
    PasswordWorker::Result result{job.ticket, false, false, ""};
    try {
        result.matches = !job.hash || matchesPassword(job.password, *job.hash);
        if (result.matches && !job.newPassword.empty()) {
            result.newHash = hashPassword(job.newPassword);
        }
    } catch (const std::exception& error) {
        result.failed = true;
        trace::OrvTrace(2, 1, 4).putLog(0, error.what());
    }
    return result;
}

}  // namespace

PasswordWorker::PasswordWorker() : m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (!m_wake.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
    m_thread = std::thread(&PasswordWorker::work, this);
}

PasswordWorker::~PasswordWorker() {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

bool PasswordWorker::submit(Job job) {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_jobs.size() >= MAX_WAITING) {
            return false;
        }
        m_jobs.push_back(std::move(job));
    }
    m_changed.notify_one();
    return true;
}

void PasswordWorker::cancel(std::uint64_t ticket) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = std::find_if(m_jobs.begin(), m_jobs.end(),
                                    [ticket](const Job& job) { return job.ticket == ticket; });
    if (found != m_jobs.end()) {
        m_jobs.erase(found);
    }
}

std::vector<PasswordWorker::Result> PasswordWorker::takeResults() {
    eventfd_t count = 0;
    ::eventfd_read(m_wake.get(), &count);
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_results, {});
}

void PasswordWorker::work() {
    std::unique_lock<std::mutex> lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_ending || !m_jobs.empty(); });
        if (m_ending) {
            return;
        }
        const Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        lock.unlock();
        const Result result = carryOut(job);
        lock.lock();
        m_results.push_back(result);
        ::eventfd_write(m_wake.get(), 1);
    }
}

}  // namespace ORVLib::Board
