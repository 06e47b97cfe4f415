#include <gtest/gtest.h>

#include <climits>

#include "component/Printing.h"
#include "gui/IPAddrMaskField.h"
#include "gui/IPAddressField.h"
#include "support/Files.h"

using namespace ORVLib::Gui;

namespace {

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
    for (const int* const mode : {static_cast<const int*>(nullptr), &EDIT}) {
        field.setDisplayMode(mode);
        EXPECT_EQ(printedWithFlushes(field), boxes(""));
    }
    field.setOnFocusFunction("replaced", "");
    field.setOnFocusFunction("go", "this, 1");
    for (const int* const mode : {&CONFIRM, &OTHER}) {
        field.setDisplayMode(mode);
        EXPECT_EQ(printedWithFlushes(field),
                  boxes(R"( onFocus="go(this, 1);" class="disabled" disabled)"));
    }
}

TEST(IPAddressField, ChecksNumbersAndKeepsThem) {
    struct Case {
        int number;
        const char* kept;
        bool isError;
    };
    for (const Case& c : {Case{0, "0", false}, Case{255, "255", false}, Case{256, "256", true},
                          Case{-1, "-1", true}, Case{INT_MAX, "2147483647", true},
                          Case{INT_MIN, "-2147483648", true}}) {
        IPAddressField field("n");
        field.setAddress(0, c.number);
        EXPECT_EQ(field.getAddress(0), c.kept);
        EXPECT_EQ(field.isError(), c.isError) << c.number;
        field.setAddress(0, 1);
        EXPECT_EQ(field.isError(), c.isError) << "an error must stay";
    }
}

TEST(IPAddressField, ChecksTextsAndKeepsThemEscaped) {
    struct Case {
        std::string text;
        std::string kept;
        bool isError;
    };
    for (const Case& c :
         {Case{"010", "10", false}, Case{"255", "255", false}, Case{"256", "256", true},
          Case{"", "", true}, Case{"1a", "1a", true}, Case{"-1", "-1", true},
          Case{" 1", "&nbsp;1", true}, Case{R"("><b>&)", "&quot;&gt;&lt;b&gt;&amp;", true},
          Case{bytes("1\0"), bytes("1\0"), true}, Case{"4294967297", "2147483647", true},
          Case{"99999999999999999999999", "2147483647", true}}) {
        IPAddressField field("n");
        field.setAddress(1, c.text);
        EXPECT_EQ(field.getAddress(1), c.kept);
        EXPECT_EQ(field.isError(), c.isError) << c.text;
    }
}

TEST(IPAddressField, WrapsEveryIndexAround) {
    struct Case {
        int index;
        int box;
    };
    for (const Case& c : {Case{3, 3}, Case{4, 0}, Case{5, 1}, Case{7, 3}, Case{INT_MAX, 3},
                          Case{-1, 3}, Case{-4, 0}, Case{-5, 3}, Case{INT_MIN, 0}}) {
        IPAddressField field("n");
        field.setAddress(c.index, 10);
        for (int box = 0; box < IPAddressField::ADDR_BYTE_SIZE; ++box) {
            EXPECT_EQ(field.getAddress(box), box == c.box ? "10" : "") << c.index;
        }
        field.setAddress(c.index, "11");
        EXPECT_EQ(field.getAddress(c.box), "11");
    }
}

const char* const HIDDEN_INPUTS =
    "\n^"
    "<input type=\"hidden\" value=\"192\" name=\"n0\">\n^"
    "<input type=\"hidden\" value=\"168\" name=\"n1\">\n^"
    "<input type=\"hidden\" value=\"0\" name=\"n2\">\n^"
    "<input type=\"hidden\" value=\"255\" name=\"n3\">\n^"
    "<input type=\"hidden\" value=\"24\" name=\"n4\">";

TEST(IPAddrMaskField, PrintsEachDisplayMode) {
    const std::string boxes =
        "<input type=\"text\" size=\"4\" maxlength=\"3\" value=\"192\" name=\"n0\">&nbsp;.\n^"
        "<input type=\"text\" size=\"4\" maxlength=\"3\" value=\"168\" name=\"n1\">&nbsp;.\n^"
        "<input type=\"text\" size=\"4\" maxlength=\"3\" value=\"0\" name=\"n2\">&nbsp;.\n^"
        "<input type=\"text\" size=\"4\" maxlength=\"3\" value=\"255\" name=\"n3\">&nbsp;/\n^"
        "<input type=\"text\" size=\"3\" maxlength=\"2\" value=\"24\" name=\"n4\">";
    struct Case {
        const int* mode;
        bool showText;
        std::string expected;
    };
    for (const Case& c :
         {Case{nullptr, true, boxes}, Case{&EDIT, false, boxes},
          Case{&CONFIRM, true, std::string("192.168.0.255/24&nbsp;") + HIDDEN_INPUTS},
          Case{&CONFIRM, false, HIDDEN_INPUTS}, Case{&OTHER, true, "192.168.0.255/24&nbsp;"},
          Case{&OTHER, false, ""}}) {
        IPAddrMaskField field("n", "", "", c.mode, c.showText);
        static_cast<IPAddressField&>(field).setDisplayMode(c.mode == &EDIT ? &OTHER : &EDIT);
        field.setOnFocusFunction("go", "");
        field.setAddress(ADDRESS);
        field.setMaskBit(24);
        EXPECT_EQ(printedWithFlushes(field), c.expected);
    }
}

TEST(IPAddrMaskField, ChecksMasksAndKeepsThem) {
    struct Case {
        const char* text;
        const char* kept;
        bool isError;
    };
    for (const Case& c :
         {Case{"1", "1", false}, Case{"032", "32", false}, Case{"0", "0", true},
          Case{"33", "33", true}, Case{"", "", true}, Case{"-1", "-1", true},
          Case{"\"<\"", "&quot;<&quot;", true}, Case{"4294967328", "2147483647", true}}) {
        IPAddrMaskField field("n");
        field.setMaskBit(c.text);
        EXPECT_EQ(field.getMaskBit(), c.kept);
        EXPECT_EQ(field.isError(), c.isError) << c.text;
        field.setMaskBit(24);
        EXPECT_EQ(field.isError(), c.isError) << "an error must stay";
    }
    for (const int bits : {INT_MIN, -1, 0, 33, INT_MAX}) {
        IPAddrMaskField field("n");
        field.setMaskBit(bits);
        EXPECT_TRUE(field.isError()) << bits;
    }
    IPAddrMaskField field("n");
    field.setMaskBit(32);
    EXPECT_FALSE(field.isError());
    field.setAddress(0, 256);
    EXPECT_TRUE(field.isError()) << "the address counts as well";
}

}  // namespace
