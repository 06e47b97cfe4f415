#include "orv/OrvTrace.h"

#include <gtest/gtest.h>

#include <cstdlib>

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
    EXPECT_NE(line.find("level=0 1/2/3 a\\x0aforged\\x0d\\x09\\x00\\x7f\xa4 end\n"),
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

}  // namespace
