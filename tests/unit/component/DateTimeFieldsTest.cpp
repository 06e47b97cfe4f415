#include <gtest/gtest.h>

#include <initializer_list>
#include <sstream>
#include <string>

#include "component/Printing.h"
#include "gui/DateField.h"
#include "gui/TimeField.h"

using namespace ORVLib::Gui;

namespace {

/// Expects the texts, with slashes between them, to be refused or accepted once they are checked.
template <class Field>
void expectChecks(void (Field::*check)(), bool isError, std::initializer_list<const char*> cases) {
    for (const char* const texts : cases) {
        std::istringstream parts(texts);
        std::string text[3];
        for (std::string& part : text) {
            std::getline(parts, part, '/');
        }
        Field field("n", "", "", text[0], text[1], text[2]);
        EXPECT_FALSE(field.isError()) << "not checked yet";
        (field.*check)();
        field.setError(false);
        EXPECT_EQ(field.isError(), isError) << texts;
        field.setError();
        (field.*check)();
        EXPECT_TRUE(field.isError()) << "an error stays";
    }
}

TEST(DateField, ChecksTheCalendar) {
    expectChecks(
        &DateField::checkDate, false,
        {"2000/02/29", "2004/2/29", "2001/12/31", " 2001x/+1/1.5", "99999999999999999999/4/30",
         "2001/1/31", "2001/2/28", "2001/3/31", "2001/4/30", "2001/5/31", "2001/6/30", "2001/7/31",
         "2001/8/31", "2001/9/30", "2001/10/31", "2001/11/30"});
    expectChecks(&DateField::checkDate, true,
                 {"1999/12/31",        "2003/2/29",         "2100/2/29",  "2000/2/30", "2001/13/1",
                  "2001/0/1",          "2001/-1/1",         "2001/1/0",   "//",        "x/1/1",
                  "2001/4294967297/1", "2001/1/4294967297", "2001/1/32",  "2001/2/29", "2001/3/32",
                  "2001/4/31",         "2001/5/32",         "2001/6/31",  "2001/7/32", "2001/8/32",
                  "2001/9/31",         "2001/10/32",        "2001/11/31", "2001/12/32"});
}

TEST(TimeField, ChecksTheClock) {
    expectChecks(&TimeField::checkTime, false, {"23/59/59", "//x"});
    expectChecks(&TimeField::checkTime, true,
                 {"24/0/0", "0/60/0", "0/0/60", "-1/0/0", "0/-1/0", "0/0/-1", "4294967297/0/0",
                  "0/0/-4294967295"});
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
