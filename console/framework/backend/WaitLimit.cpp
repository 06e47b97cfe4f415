#include "framework/backend/WaitLimit.h"

#include <cstdlib>

#include "framework/backend/Environment.h"

namespace Console {

namespace {

constexpr char NAME[] = "ORV_IPC_TIMEOUT_MS";

}  // namespace

WaitLimit::WaitLimit(int milliseconds) : m_before(variable(NAME)) {
    if (m_before.empty() || std::strtol(m_before.c_str(), nullptr, 10) > milliseconds) {
        setenv(NAME, std::to_string(milliseconds).c_str(), 1);
    }
}

WaitLimit::~WaitLimit() {
    if (m_before.empty()) {
        unsetenv(NAME);
    } else {
        setenv(NAME, m_before.c_str(), 1);
    }
}

}  // namespace Console
