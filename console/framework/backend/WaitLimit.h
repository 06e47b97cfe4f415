#pragma once

#include <string>

namespace Console {

/// Limits the wait for the board while it exists, unless the limit is lower already.
class WaitLimit {
public:
    explicit WaitLimit(int milliseconds);
    ~WaitLimit();
    WaitLimit(const WaitLimit&) = delete;
    WaitLimit& operator=(const WaitLimit&) = delete;

private:
    std::string m_before;
};

}  // namespace Console
