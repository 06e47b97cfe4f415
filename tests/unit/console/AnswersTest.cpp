// What pages make of answers that a board should not give.

#include <gtest/gtest.h>

#include "framework/backend/Digits.h"
#include "framework/backend/RecordReader.h"
#include "framework/backend/UtcTime.h"
#include "orv/PException.h"

namespace Console {

namespace {

template <typename Action>
unsigned int errorOf(Action action) {
    try {
        action();
    } catch (const ORVLib::PException& e) {
        return e.getExceptionDetail();
    }
    return 0;
}

constexpr unsigned int DAMAGED = 1026;

}  // namespace

TEST(Answers, RowsAreWhole) {
    EXPECT_TRUE(rowsOf({}, 2).empty());
    EXPECT_TRUE(rowsOf({""}, 2).empty());
    EXPECT_EQ(rowsOf({"0", "on", "1", ""}, 2), (std::vector<Record>{{"0", "on"}, {"1", ""}}));
    EXPECT_EQ(errorOf([] { rowsOf({"0", "on", "1"}, 2); }), DAMAGED);
}

TEST(Answers, RecordsHaveTheirTexts) {
    const Record record = {"a", "b"};
    RecordReader reader(record);
    EXPECT_EQ(reader.next(), "a");
    EXPECT_EQ(errorOf([&] { reader.requireEnd(); }), DAMAGED);
    EXPECT_EQ(reader.next(), "b");
    EXPECT_EQ(errorOf([&] { reader.requireEnd(); }), 0U);
    EXPECT_EQ(errorOf([&] { reader.next(); }), DAMAGED);
}

TEST(Answers, NumbersAreDigits) {
    EXPECT_EQ(readDigits("007", 3), 7);
    EXPECT_EQ(readDigits("999999999", 9), 999999999);
    for (const char* const text : {"", "ab", "3x", " 3", "+3", "-3", "1000", "99999999999"}) {
        EXPECT_EQ(readDigits(text, 3), -1) << text;
    }
}

TEST(Answers, TimesThatAreNoneStayAsTheyAre) {
    EXPECT_EQ(utcTime("1924991999"), "2030-12-31 23:59:59");
    for (const char* const text : {"", "12x", "-1", "99999999999"}) {
        EXPECT_EQ(utcTime(text), text);
        EXPECT_EQ(movedTime(text, "+00:00", "+01:00"), text);
    }
    EXPECT_EQ(movedTime("2030-12-31 23:59:59", "-03:30", "+05:45"), "2031-01-01 09:14:59");
    EXPECT_EQ(movedTime("1970-01-01 00:00:00", "+09:00", "-12:00"), "1970-01-01 00:00:00");
    EXPECT_EQ(movedTime("2037-12-31 23:59:59", "-12:00", "+14:00"), "2037-12-31 23:59:59");
}

}  // namespace Console
