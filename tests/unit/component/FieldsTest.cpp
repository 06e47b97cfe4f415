#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "support/Components.h"
#include "support/Files.h"
#include "support/Printing.h"

using namespace ORVLib::Gui;

namespace {

TEST(TextField, PrintsItsDisplayMode) {
    TextField field("n", R"("<&'")", "f", 10, 8);
    const std::string rest = R"( size="10" maxlength="8" name="n" value="&quot;<&'&quot;">)";
    expectPrinted(field, R"(<input type="text")" + rest,
                  R"(<input type="text" class="disabled" disabled)" + rest);
    EXPECT_EQ(field.getValue(), R"("<&'")");
}

/// Expects `field` to accept every one of `valid` and to refuse every one of `invalid`.
void expectChecks(TextField& field, const std::vector<std::string>& valid,
                  const std::vector<std::string>& invalid) {
    for (const std::string& value : valid) {
        field.setValue(value);
        EXPECT_FALSE(field.isError()) << value;
    }
    for (const std::string& value : invalid) {
        field.setValue(value);
        EXPECT_TRUE(field.isError()) << value;
    }
}

TEST(TextField, ChecksLengthCharactersAndEmptiness) {
    TextField field("n", "", "", 10, 8);
    expectChecks(field, {"12345678", "a b", "\xa4\xa2"}, {"", "123456789"});
    field.setCheckCharacters(true);
    expectChecks(field, {"!~"}, {"a b", "\x1f", "a\x7f", "a\x80", "\xff", bytes("a\0")});
    field.setAllowBlank(true);
    expectChecks(field, {"a b"}, {"\x1f"});
    field.setAllowEmpty(true);
    expectChecks(field, {""}, {});
    field.setMaxLength(0);
    expectChecks(field, {""}, {"a"});
    for (const int length : {-1, INT_MIN}) {
        field.setMaxLength(length);
        expectChecks(field, {}, {"", "a"});
    }
}

TEST(PasswordField, NeverPrintsItsValue) {
    const char* const box = R"(<input type="password" size="10" maxlength="8" name="n" value="">)";
    PasswordField field("n", "a\"\xa4", "f", 10, 8);
    expectPrinted(field, box, "***");
    field.setValue("");
    expectPrinted(field, box, "&nbsp;");
    field.setValue("123456789");
    EXPECT_FALSE(field.isError());
}

TEST(EmailAddressField, WantsAnAtSignAndNoDotAtTheEnds) {
    EmailAddressField field("n", "", "", 20, 10);
    expectChecks(field, {"a@b", "@", "a@@ b", "abcd@fghij"},
                 {"", "ab", ".a@b", "a@b.", ".", "abcd@fghijk"});
}

TEST(PortNumberField, ChecksTheRange) {
    PortNumberField field("n", "", "", 6, 20);
    expectChecks(field, {"1024", "65535", "0001024"},
                 {"", "0", "80", "1023", "65536", "4294968320", "18446744073709552640"});
    field.setAllowWellKnownPorts(true);
    expectChecks(field, {"1", "80", "1023", "1024"},
                 {"0", "+80", " 80", "80 ", "-80", "0x50", "8\xb2", "4294967376"});
    field.setMaximumPort(1999);
    expectChecks(field, {"1999"}, {"2000"});
    field.setMaximumPort(-1);
    expectChecks(field, {}, {"0", "1"});
    field.setMaximumPort(INT_MAX);
    expectChecks(field, {"99999999999999999999"}, {"100000000000000000000"});
}

TEST(InetAddressField, TellsHostNamesFromDottedNumbers) {
    InetAddressField field("n", "", "", 20, 16);
    expectChecks(field,
                 {"srv01.lan", "a b..c", "1.2.3.4.5.6.x", "abcdefghijklmnop", "192.168.1.1",
                  "255.255.255.255", "1.2.3..4", "1..2", "10.1", "10"},
                 {"", ".a", "a.", "abcdefghijklmnopq", "192.168.1.256", "256", "4294967297.1.1.1",
                  "1.2.3.4.5", "1.2.3.4..5", "1.2. 3.4", " ", ".1.2", "1.2.", "."});
}

template <class Field>
void expectRuleForEmptyValues(Field field) {
    static_cast<TextField&>(field).setAllowEmpty(true);
    EXPECT_TRUE(field.isError());
    field.setAllowEmpty(true);
    static_cast<TextField&>(field).setAllowEmpty(false);
    EXPECT_FALSE(field.isError());
}

TEST(AddressLikeFields, HaveTheirOwnRuleForEmptyValues) {
    expectRuleForEmptyValues(EmailAddressField("n"));
    expectRuleForEmptyValues(PortNumberField("n"));
    expectRuleForEmptyValues(InetAddressField("n"));
}

constexpr unsigned char ADDRESS[] = {192, 168, 0, 255};

TEST(IPAddressField, PrintsFourBoxesInEachDisplayMode) {
    const auto boxes = [](const std::string& rest) {
        const std::string start =
            R"(<input type="text" size="4" maxlength="3" style="width:30px;" value=")";
        return start + "192\" name=\"n0\" " + rest + ">&nbsp;.\n" +  //
               start + "168\" name=\"n1\" " + rest + ">&nbsp;.\n" +  //
               start + "0\" name=\"n2\" " + rest + ">&nbsp;.\n" +    //
               start + "255\" name=\"n3\" " + rest + ">";
    };
    IPAddressField field("n");
    field.setAddress(ADDRESS);
    expectPrinted(field, boxes(""), boxes(R"( class="disabled" disabled)"));
    field.setOnFocusFunction("replaced", "");
    field.setOnFocusFunction("go", "this, 1");
    EXPECT_EQ(printedWithFlushes(field),
              boxes(R"( onFocus="go(this, 1);" class="disabled" disabled)"));
}

struct Entry {
    std::string text;
    std::string kept;
    bool isError;
};

TEST(IPAddressField, ChecksTextsAndKeepsThemEscaped) {
    for (const Entry& c :
         {Entry{"010", "10", false}, Entry{"255", "255", false}, Entry{"256", "256", true},
          Entry{"", "", true}, Entry{"-1", "-1", true}, Entry{" 1", "&nbsp;1", true},
          Entry{R"("><b>&)", "&quot;&gt;&lt;b&gt;&amp;", true},
          Entry{bytes("1\0"), bytes("1\0"), true}, Entry{"4294967297", "2147483647", true}}) {
        IPAddressField field("n");
        field.setAddress(1, c.text);
        EXPECT_EQ(field.getAddress(1), c.kept);
        EXPECT_EQ(field.isError(), c.isError) << c.text;
        field.setAddress(1, 1);
        EXPECT_EQ(field.isError(), c.isError) << "an error must stay";
    }
    IPAddressField field("n");
    field.setAddress(0, INT_MIN);
    EXPECT_EQ(field.getAddress(0), "-2147483648");
    EXPECT_TRUE(field.isError());
}

TEST(IPAddressField, WrapsEveryIndexAround) {
    using Case = std::tuple<int, int>;
    for (const auto& [index, written] :
         {Case{3, 3}, Case{4, 0}, Case{INT_MAX, 3}, Case{-1, 3}, Case{-4, 0}, Case{INT_MIN, 0}}) {
        IPAddressField field("n");
        field.setAddress(index, "10");
        for (int box = 0; box < IPAddressField::ADDR_BYTE_SIZE; ++box) {
            EXPECT_EQ(field.getAddress(box), box == written ? "10" : "") << index;
        }
        EXPECT_EQ(field.getAddress(index), "10");
    }
}

TEST(IPAddrMaskField, PrintsEachDisplayMode) {
    const std::string boxes =
        "<input type=\"text\" size=\"4\" maxlength=\"3\" value=\"192\" name=\"n0\">&nbsp;.\n^"
        "<input type=\"text\" size=\"4\" maxlength=\"3\" value=\"168\" name=\"n1\">&nbsp;.\n^"
        "<input type=\"text\" size=\"4\" maxlength=\"3\" value=\"0\" name=\"n2\">&nbsp;.\n^"
        "<input type=\"text\" size=\"4\" maxlength=\"3\" value=\"255\" name=\"n3\">&nbsp;/\n^"
        "<input type=\"text\" size=\"3\" maxlength=\"2\" value=\"24\" name=\"n4\">";
    const std::string hidden =
        "\n^"
        "<input type=\"hidden\" value=\"192\" name=\"n0\">\n^"
        "<input type=\"hidden\" value=\"168\" name=\"n1\">\n^"
        "<input type=\"hidden\" value=\"0\" name=\"n2\">\n^"
        "<input type=\"hidden\" value=\"255\" name=\"n3\">\n^"
        "<input type=\"hidden\" value=\"24\" name=\"n4\">";
    const std::string text = "192.168.0.255/24&nbsp;";
    using Case = std::tuple<const int*, bool, std::string>;
    for (const auto& [mode, showText, expected] :
         {Case{nullptr, true, boxes}, Case{&EDIT, false, boxes},
          Case{&CONFIRM, true, text + hidden}, Case{&CONFIRM, false, hidden},
          Case{&OTHER, true, text}, Case{&OTHER, false, ""}}) {
        IPAddrMaskField field("n", "", "", mode, showText);
        static_cast<IPAddressField&>(field).setDisplayMode(mode == &EDIT ? &OTHER : &EDIT);
        field.setOnFocusFunction("go", "");
        field.setAddress(ADDRESS);
        field.setMaskBit(24);
        EXPECT_EQ(printedWithFlushes(field), expected);
    }
}

TEST(IPAddrMaskField, ChecksMasksAndKeepsThem) {
    for (const Entry& c :
         {Entry{"1", "1", false}, Entry{"032", "32", false}, Entry{"0", "0", true},
          Entry{"33", "33", true}, Entry{"", "", true}, Entry{"\"<\"", "&quot;<&quot;", true},
          Entry{"4294967328", "2147483647", true}}) {
        IPAddrMaskField field("n");
        field.setMaskBit(c.text);
        EXPECT_EQ(field.getMaskBit(), c.kept);
        EXPECT_EQ(field.isError(), c.isError) << c.text;
        field.setMaskBit(24);
        EXPECT_EQ(field.isError(), c.isError) << "an error must stay";
    }
    IPAddrMaskField field("n");
    field.setMaskBit(32);
    field.setAddress(0, 256);
    EXPECT_TRUE(field.isError()) << "the address counts as well";
}

/// Expects the texts, with slashes between them, to be refused or accepted once they are checked.
template <class Field>
void expectParts(void (Field::*check)(), bool isError, std::initializer_list<const char*> cases) {
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
    expectParts(
        &DateField::checkDate, false,
        {"2000/02/29", "2004/2/29", "2001/12/31", " 2001x/+1/1.5", "99999999999999999999/4/30",
         "2001/1/31", "2001/2/28", "2001/3/31", "2001/4/30", "2001/5/31", "2001/6/30", "2001/7/31",
         "2001/8/31", "2001/9/30", "2001/10/31", "2001/11/30"});
    expectParts(&DateField::checkDate, true,
                {"1999/12/31",        "2003/2/29",         "2100/2/29",  "2000/2/30", "2001/13/1",
                 "2001/0/1",          "2001/-1/1",         "2001/1/0",   "//",        "x/1/1",
                 "2001/4294967297/1", "2001/1/4294967297", "2001/1/32",  "2001/2/29", "2001/3/32",
                 "2001/4/31",         "2001/5/32",         "2001/6/31",  "2001/7/32", "2001/8/32",
                 "2001/9/31",         "2001/10/32",        "2001/11/31", "2001/12/32"});
}

TEST(TimeField, ChecksTheClock) {
    expectParts(&TimeField::checkTime, false, {"23/59/59", "//x"});
    expectParts(&TimeField::checkTime, true,
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
