#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "TraceSink.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace Fuzz {

/// What must hold whatever the input is: the fuzzer shows where it did not.
inline void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// The fuzzer's bytes, taken from the front. Behind the end numbers are 0 and texts empty.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : m_rest(data, data + size) {}
    explicit Input(const std::string& bytes) : m_rest(bytes) {}

    bool isEmpty() const { return m_rest.empty(); }
    unsigned int number(std::size_t bytes = 1) {
        unsigned int number = 0;
        for (const char byte : take(bytes)) {
            number = number << 8 | static_cast<unsigned char>(byte);
        }
        return number;
    }
    int signedNumber() { return static_cast<int>(number(4)); }
    bool flag() { return (number() & 1) != 0; }
    std::string take(std::size_t size) {
        const std::string taken = m_rest.substr(0, size);
        m_rest.erase(0, size);
        return taken;
    }
    /// A text that a NUL ends.
    std::string text() {
        const std::string text = take(m_rest.find('\0'));
        take(1);
        return text;
    }
    /// All that is left. Runs are written short, so that a small input is a large body: 1, a
    /// count of two bytes and a byte stand for that byte so often.
    std::string body(std::size_t largest = 70000) {
        std::string whole;
        while (!isEmpty() && whole.size() < largest) {
            const std::string head = take(1);
            const unsigned int count = head == "\1" ? number(2) : 1;
            whole.append(count, head == "\1" ? static_cast<char>(number()) : head[0]);
        }
        return whole;
    }

private:
    std::string m_rest;
};

/// As setenv(), which keeps every value it was ever given.
inline void setVariable(const std::string& name, const std::string& value) {
    static std::map<std::string, std::vector<char>> kept;
    const std::string text = name + "=" + value;
    std::vector<char> entry(text.c_str(), text.c_str() + text.size() + 1);
    putenv(entry.data());
    kept[name].swap(entry);
}

/// The text up to its first NUL, as what takes C strings sees it.
inline std::string cString(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

constexpr const char* OPEN_FILE = "/proc/self/fd/200";

/// Makes this the content of OPEN_FILE, which every catalogue and skeleton of the site leads to.
inline void setOpenFile(const std::string& content) {
    static const int file = dup2(memfd_create("input", 0), 200);
    require(ftruncate(file, 0) == 0 && pwrite(file, content.data(), content.size(), 0) ==
                                           static_cast<ssize_t>(content.size()));
}

/// Trace log entries are made and discarded.
inline const auto traceBefore = ORVLib::trace::setTraceSink([](const auto&) {});

}  // namespace Fuzz
