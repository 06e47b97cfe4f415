#include "orv/OrvTrace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "support/Files.h"

using ORVLib::trace::OrvTrace;

namespace {

std::string logged(const char* threshold, int level, const std::string& text) {
    setenv("ORV_TRACE_LEVEL", threshold, 1);
    testing::internal::CaptureStderr();
    OrvTrace(1, 2, 3).putLog(level, text);
    unsetenv("ORV_TRACE_LEVEL");
    return testing::internal::GetCapturedStderr();
}

TEST(TraceLog, OneEntryIsOneLine) {
    const std::string line = logged("0", 0, bytes("a\nforged\r\t\0\x7f\xa4 end"));
    EXPECT_NE(line.find("level=0 1/2/3 a\\x0aforged\\x0d\\x09\\x00\\x7f\\xa4 end\n"),
              std::string::npos)
        << line;
    EXPECT_EQ(line.find('\n'), line.size() - 1);
}

TEST(TraceLog, KeepsEntriesUpToTheThreshold) {
    EXPECT_EQ(logged("0", 1, "x"), "");
    EXPECT_EQ(logged("199", 200, "x"), "");
    EXPECT_NE(logged("200", 200, "x"), "");
    EXPECT_NE(logged("", 0, "x"), "");
}

/// Puts `count` entries into the log for a request from `source`. Returns the log.
std::string repeated(const char* source, const std::string& text, int count) {
    setenv("REMOTE_ADDR", source, 1);
    std::string log;
    for (int i = 0; i < count; ++i) {
        log += logged("0", 0, text + " " + std::to_string(i));
    }
    return log;
}

// Puts all that was counted a minute back.
void letAMinutePass(const std::string& table) {
    std::fstream file(table, std::ios::in | std::ios::out | std::ios::binary);
    constexpr std::streamsize SIZE = 16384;
    std::vector<std::uint32_t> cells(SIZE / sizeof(std::uint32_t));
    file.read(reinterpret_cast<char*>(cells.data()), SIZE);
    for (std::uint32_t& cell : cells) {
        cell = cell != 0 ? (cell & ~0xffc000U) | ((cell - 0x4000U) & 0xffc000U) : 0;
    }
    file.seekp(0);
    file.write(reinterpret_cast<const char*>(cells.data()), SIZE);
}

TEST(TraceLog, CountsWhatASourceRepeatsInsteadOfWritingIt) {
    const std::string table = testing::TempDir() + "trace.limits";
    std::remove(table.c_str());
    setenv("ORV_TRACE_LIMITS", table.c_str(), 1);
    const auto lines = [](const std::string& log) {
        return std::count(log.begin(), log.end(), '\n');
    };
    // A minute may begin in the middle of it.
    const auto first = lines(repeated("192.0.2.1", "wrong", 200));
    EXPECT_GE(first, 60);
    EXPECT_LE(first, 121);
    EXPECT_EQ(lines(repeated("192.0.2.1", "other", 10)), 10);
    EXPECT_EQ(lines(repeated("192.0.2.2", "wrong", 10)), 10);
    letAMinutePass(table);
    const std::string next = repeated("192.0.2.1", "wrong", 1);
    EXPECT_EQ(lines(next), 2);
    EXPECT_NE(next.find("dropped: "), std::string::npos) << next;
    setenv("ORV_TRACE_LIMITS", "/nowhere/table", 1);
    EXPECT_EQ(lines(repeated("192.0.2.1", "wrong", 100)), 100);
    unsetenv("ORV_TRACE_LIMITS");
    unsetenv("REMOTE_ADDR");
}

}  // namespace
