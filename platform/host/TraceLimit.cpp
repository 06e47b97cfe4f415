#include "TraceLimit.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>

#include "common/FileDescriptor.h"

namespace ORVLib::trace::TraceLimit {

namespace {

// A cell counts the entries of one kind and source in one minute. It is one word, so that pages
// change it without a lock: 8 bits distinguish kinds with the same cell, 10 bits are the minute,
// the others the count. Two kinds whose cell and 8 bits are equal, one pair in a million, share
// their limit. A kind that takes over the cell of another resets its count.
using Cell = std::atomic<std::uint32_t>;
static_assert(Cell::is_always_lock_free && sizeof(Cell) == sizeof(std::uint32_t));

constexpr std::size_t CELLS = 4096;
constexpr std::size_t TABLE_SIZE = CELLS * sizeof(Cell);
constexpr int COUNT_BITS = 14;
constexpr int MINUTE_BITS = 10;
constexpr std::uint32_t COUNT_MASK = (1U << COUNT_BITS) - 1;
constexpr std::uint32_t MINUTE_MASK = (1U << MINUTE_BITS) - 1;
constexpr std::uint32_t TAG_MASK = ~(COUNT_MASK | MINUTE_MASK << COUNT_BITS);

constexpr mode_t OWNER_ONLY = 0600;

/// The table of all pages, mapped during the object's lifetime. Empty when there is none.
class Table {
public:
    Table() {
        const char* const path = std::getenv("ORV_TRACE_LIMITS");
        if (path == nullptr) {
            return;
        }
        const FileDescriptor file(
            ::open(path, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, OWNER_ONLY));
        struct stat status {};
        if (!file.isOpen() || ::fstat(file.get(), &status) != 0) {
            return;
        }
        // The space is allocated here: on a full disk, a write to the mapped table would end the
        // page.
        if (status.st_size < static_cast<off_t>(TABLE_SIZE) &&
            ::posix_fallocate(file.get(), 0, TABLE_SIZE) != 0) {
            return;
        }
        void* const mapped =
            ::mmap(nullptr, TABLE_SIZE, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
        m_cells = mapped != MAP_FAILED ? static_cast<Cell*>(mapped) : nullptr;
    }
    ~Table() {
        if (m_cells != nullptr) {
            ::munmap(static_cast<void*>(m_cells), TABLE_SIZE);
        }
    }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    Cell* find(std::size_t hash) const {
        return m_cells != nullptr ? m_cells + hash % CELLS : nullptr;
    }

private:
    Cell* m_cells = nullptr;
};

std::uint32_t hashOf(const TraceEntry& entry) {
    const char* const source = std::getenv("REMOTE_ADDR");
    const std::string kind =
        std::to_string(entry.category) + '/' + std::to_string(entry.subCategory) + '/' +
        std::to_string(entry.module) + ' ' + entry.text.substr(0, entry.text.find(' ')) + ' ' +
        (source != nullptr ? source : "");
    return static_cast<std::uint32_t>(std::hash<std::string>()(kind));
}

std::uint32_t presentMinute() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint32_t>(now.tv_sec / 60) & MINUTE_MASK;
}

}  // namespace

Verdict count(const TraceEntry& entry) {
    const Table table;
    const std::uint32_t hash = hashOf(entry);
    Cell* const cell = table.find(hash);
    if (cell == nullptr) {
        return {true, 0};
    }
    const std::uint32_t begun = (hash & TAG_MASK) | presentMinute() << COUNT_BITS;
    std::uint32_t before = cell->load();
    std::uint32_t after = 0;
    do {
        const bool isSameMinute = (before & ~COUNT_MASK) == begun;
        after = isSameMinute ? begun | std::min((before & COUNT_MASK) + 1, COUNT_MASK) : begun | 1;
    } while (!cell->compare_exchange_weak(before, after));
    const bool isReported = (before & TAG_MASK) == (after & TAG_MASK) && (after & COUNT_MASK) == 1;
    const std::uint32_t earlier = isReported ? before & COUNT_MASK : 0;
    return {(after & COUNT_MASK) <= MOST_A_MINUTE,
            std::max(earlier, MOST_A_MINUTE) - MOST_A_MINUTE};
}

}  // namespace ORVLib::trace::TraceLimit
