#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "component/Printing.h"
#include "gui/DateField.h"
#include "gui/TimeField.h"

using namespace ORVLib::Gui;

namespace {

/// A field that holds the three texts between the slashes.
template <class Field>
Field fieldOf(const std::string& texts) {
    std::istringstream stream(texts);
    std::string parts[3];
    for (std::string& part : parts) {
        std::getline(stream, part, '/');
    }
    return Field("n", "", "", parts[0], parts[1], parts[2]);
}

bool isDateError(const char* texts) {
    auto field = fieldOf<DateField>(texts);
    EXPECT_FALSE(field.isError()) << "not checked yet";
    field.checkDate();
    return field.isError();
}

bool isTimeError(const char* texts) {
    auto field = fieldOf<TimeField>(texts);
    EXPECT_FALSE(field.isError()) << "not checked yet";
    field.checkTime();
    return field.isError();
}

TEST(DateField, ChecksTheCalendar) {
    for (const char* const date : {"2000/02/29", "2004/2/29", "2400/2/29", "2000/1/1", "2001/4/30",
                                   "2001/12/31", " 2001x/+1/1.5", "99999999999999999999/12/31"}) {
        EXPECT_FALSE(isDateError(date)) << date;
    }
    for (const char* const date :
         {"1999/12/31", "2003/2/29", "2100/2/29", "2000/2/30", "2001/4/31", "2001/12/32",
          "2001/13/1", "2001/0/1", "2001/-1/1", "2001/1/0", "2001/1/-1", "//", "x/1/1",
          "-99999999999999999999/12/31", "2001/4294967297/1", "2001/1/4294967297"}) {
        EXPECT_TRUE(isDateError(date)) << date;
    }
}

TEST(TimeField, ChecksTheClock) {
    for (const char* const time : {"23/59/59", "0/0/0", "//", "x/y/z"}) {
        EXPECT_FALSE(isTimeError(time)) << time;
    }
    for (const char* const time : {"24/0/0", "0/60/0", "0/0/60", "-1/0/0", "0/-1/0", "0/0/-1",
                                   "4294967297/0/0", "0/0/-4294967295"}) {
        EXPECT_TRUE(isTimeError(time)) << time;
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
