#include "daemon/PasswordWorker.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "orv/OrvTrace.h"
#include "state/Password.h"

namespace ORVLib::Board {

namespace {

PasswordWorker::Result execute(const PasswordWorker::Job& job) {
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

void PasswordWorker::start(Job job) {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_job = std::move(job);
    }
    m_idle = false;
    m_changed.notify_one();
}

std::optional<PasswordWorker::Result> PasswordWorker::takeResult() {
    eventfd_t count = 0;
    ::eventfd_read(m_wake.get(), &count);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_idle = m_idle || m_result.has_value();
    return std::exchange(m_result, std::nullopt);
}

void PasswordWorker::work() {
    std::unique_lock<std::mutex> lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_ending || m_job; });
        if (m_ending) {
            return;
        }
        const Job job = *std::exchange(m_job, std::nullopt);
        lock.unlock();
        Result result = execute(job);
        lock.lock();
        m_result = std::move(result);
        ::eventfd_write(m_wake.get(), 1);
    }
}

}  // namespace ORVLib::Board
