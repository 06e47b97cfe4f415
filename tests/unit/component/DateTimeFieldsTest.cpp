#include <gtest/gtest.h>

#include <string>

#include "component/Printing.h"
#include "gui/DateField.h"
#include "gui/MessageMgr.h"
#include "gui/TimeField.h"
#include "support/Captured.h"

using namespace ORVLib::Gui;

namespace {

struct Case {
    const char* first;
    const char* second;
    const char* third;
    bool isError;
};

TEST(DateField, ChecksTheCalendar) {
    for (const Case& c :
         {Case{"2000", "02", "29", false}, Case{"2004", "2", "29", false},
          Case{"2001", "12", "31", false}, Case{" 2001x", "+1", "1.5", false},
          Case{"99999999999999999999", "4", "30", false}, Case{"1999", "12", "31", true},
          Case{"2003", "2", "29", true}, Case{"2100", "2", "29", true},
          Case{"2000", "2", "30", true}, Case{"2001", "13", "1", true},
          Case{"2001", "0", "1", true}, Case{"2001", "-1", "1", true}, Case{"2001", "1", "0", true},
          Case{"", "", "", true}, Case{"x", "1", "1", true}, Case{"2001", "4294967297", "1", true},
          Case{"2001", "1", "4294967297", true}}) {
        DateField field("n", "", "", c.first, c.second, c.third);
        EXPECT_FALSE(field.isError()) << "not checked yet";
        field.checkDate();
        EXPECT_EQ(field.isError(), c.isError) << c.first << ' ' << c.second << ' ' << c.third;
    }
}

// As the header shows it.
TEST(DateField, IsCheckedBeforeItIsEscaped) {
    std::string year = "2028", month = " 2", day = "29\"<";
    DateField field("d", "", "", year, month, day);
    field.checkDate();
    for (std::string* text : {&year, &month, &day}) {
        MessageMgr::convertHTML(*text);
    }
    field.setYear(year), field.setMonth(month), field.setDay(day);
    EXPECT_FALSE(field.isError());
    EXPECT_NE(printed(field).find("value=\"29&quot;&lt;\""), std::string::npos);
}

TEST(DateField, KnowsTheLastDayOfEachMonth) {
    int month = 0;
    for (const int last : {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31}) {
        ++month;
        for (const int day : {last, last + 1}) {
            DateField field("n", "", "", "2001", std::to_string(month), std::to_string(day));
            field.checkDate();
            EXPECT_EQ(field.isError(), day != last) << month;
        }
    }
}

TEST(TimeField, ChecksTheClock) {
    for (const Case& c :
         {Case{"23", "59", "59", false}, Case{"", "", "x", false}, Case{"24", "0", "0", true},
          Case{"0", "60", "0", true}, Case{"0", "0", "60", true}, Case{"-1", "0", "0", true},
          Case{"0", "-1", "0", true}, Case{"0", "0", "-1", true},
          Case{"4294967297", "0", "0", true}, Case{"0", "0", "-4294967295", true}}) {
        TimeField field("n", "", "", c.first, c.second, c.third);
        EXPECT_FALSE(field.isError()) << "not checked yet";
        field.checkTime();
        EXPECT_EQ(field.isError(), c.isError) << c.first << ' ' << c.second << ' ' << c.third;
    }
}

TEST(DateAndTimeFields, KeepAnError) {
    DateField date("d", "", "", "2001", "1", "1");
    date.setError();
    date.checkDate();
    date.setError(false);
    EXPECT_TRUE(date.isError());
    TimeField time("t");
    time.setError();
    time.checkTime();
    time.setError(false);
    EXPECT_TRUE(time.isError());
}

TEST(DateField, PrintsItsBoxesInEachDisplayMode) {
    const auto boxes = [](const std::string& rest) {
        return R"(<input type="text" size="5" maxlength="4" value="2"<" name="d0" )" + rest +
               R"(>-<input type="text" size="3" maxlength="2" value="02" name="d1" )" + rest +
               R"(>-<input type="text" size="3" maxlength="2" value="3" name="d2" )" + rest +
               ">\n^";
    };
    DateField field("d", "", "", "2\"<", "02", "3");
    expectPrinted(field, boxes(""), boxes(R"( class="disabled" disabled)"));
    field.setOnFocusFunction("go", "'d'");
    EXPECT_EQ(printedWithFlushes(field), boxes(R"( onFocus="go('d');" class="disabled" disabled)"));
}

TEST(TimeField, PrintsItsBoxesInEachDisplayMode) {
    const auto boxes = [](const std::string& rest) {
        const std::string start = R"(<input type="text" size="3" maxlength="2" value=")";
        return start + "1\"<\" name=\"t0\" " + rest + ">:\n^" +  //
               start + "02\" name=\"t1\" " + rest + ">:\n^" +    //
               start + "3\" name=\"t2\" " + rest + ">";
    };
    TimeField field("t", "", "", "1\"<", "02", "3");
    expectPrinted(field, boxes(""), boxes(R"( class="disabled" disabled)"));
}

}  // namespace
