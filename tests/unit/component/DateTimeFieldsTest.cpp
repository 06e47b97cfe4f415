#include <gtest/gtest.h>

#include <array>
#include <initializer_list>

#include "component/Printing.h"
#include "gui/DateField.h"
#include "gui/TimeField.h"

using namespace ORVLib::Gui;

namespace {

using Texts = std::array<const char*, 3>;

bool isDateError(const Texts& texts) {
    DateField field("d", "", "", texts[0], texts[1], texts[2]);
    EXPECT_FALSE(field.isError()) << "not checked yet";
    field.checkDate();
    return field.isError();
}

bool isTimeError(const Texts& texts) {
    TimeField field("t", "", "", texts[0], texts[1], texts[2]);
    EXPECT_FALSE(field.isError()) << "not checked yet";
    field.checkTime();
    return field.isError();
}

TEST(DateField, ChecksTheCalendar) {
    for (const Texts& date : std::initializer_list<Texts>{{"2000", "02", "29"},
                                                          {"2004", "2", "29"},
                                                          {"2400", "2", "29"},
                                                          {"2000", "1", "1"},
                                                          {"2001", "4", "30"},
                                                          {"2001", "12", "31"},
                                                          {" 2001x", "+1", "1.5"},
                                                          {"99999999999999999999", "12", "31"}}) {
        EXPECT_FALSE(isDateError(date)) << date[0] << '-' << date[1] << '-' << date[2];
    }
    for (const Texts& date : std::initializer_list<Texts>{{"1999", "12", "31"},
                                                          {"2003", "2", "29"},
                                                          {"2100", "2", "29"},
                                                          {"2000", "2", "30"},
                                                          {"2001", "4", "31"},
                                                          {"2001", "12", "32"},
                                                          {"2001", "13", "1"},
                                                          {"2001", "0", "1"},
                                                          {"2001", "-1", "1"},
                                                          {"2001", "1", "0"},
                                                          {"2001", "1", "-1"},
                                                          {"", "", ""},
                                                          {"x", "1", "1"},
                                                          {"-99999999999999999999", "12", "31"},
                                                          {"2001", "4294967297", "1"},
                                                          {"2001", "1", "4294967297"}}) {
        EXPECT_TRUE(isDateError(date)) << date[0] << '-' << date[1] << '-' << date[2];
    }
}

TEST(TimeField, ChecksTheClock) {
    for (const Texts& time : std::initializer_list<Texts>{
             {"23", "59", "59"}, {"0", "0", "0"}, {"", "", ""}, {"x", "y", "z"}}) {
        EXPECT_FALSE(isTimeError(time)) << time[0] << ':' << time[1] << ':' << time[2];
    }
    for (const Texts& time : std::initializer_list<Texts>{{"24", "0", "0"},
                                                          {"0", "60", "0"},
                                                          {"0", "0", "60"},
                                                          {"-1", "0", "0"},
                                                          {"0", "-1", "0"},
                                                          {"0", "0", "-1"},
                                                          {"4294967297", "0", "0"},
                                                          {"0", "0", "-4294967295"}}) {
        EXPECT_TRUE(isTimeError(time)) << time[0] << ':' << time[1] << ':' << time[2];
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
    for (const int* const mode : {static_cast<const int*>(nullptr), &EDIT}) {
        field.setDisplayMode(mode);
        EXPECT_EQ(printedWithFlushes(field), boxes(""));
    }
    field.setOnFocusFunction("go", "'d'");
    for (const int* const mode : {&CONFIRM, &OTHER}) {
        field.setDisplayMode(mode);
        EXPECT_EQ(printedWithFlushes(field),
                  boxes(R"( onFocus="go('d');" class="disabled" disabled)"));
    }
}

TEST(TimeField, PrintsItsBoxesInEachDisplayMode) {
    const auto boxes = [](const std::string& rest) {
        const std::string start = R"(<input type="text" size="3" maxlength="2" value=")";
        return start + "1\"<\" name=\"t0\" " + rest + ">:\n^" +  //
               start + "02\" name=\"t1\" " + rest + ">:\n^" +    //
               start + "3\" name=\"t2\" " + rest + ">";
    };
    TimeField field("t", "", "", "1\"<", "02", "3");
    for (const int* const mode : {static_cast<const int*>(nullptr), &EDIT}) {
        field.setDisplayMode(mode);
        EXPECT_EQ(printedWithFlushes(field), boxes(""));
    }
    for (const int* const mode : {&CONFIRM, &OTHER}) {
        field.setDisplayMode(mode);
        EXPECT_EQ(printedWithFlushes(field), boxes(" class=\"disabled\" disabled"));
    }
}

}  // namespace
