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
    struct Case {
        int index;
        int box;
    };
    for (const Case& c :
         {Case{3, 3}, Case{4, 0}, Case{INT_MAX, 3}, Case{-1, 3}, Case{-4, 0}, Case{INT_MIN, 0}}) {
        IPAddressField field("n");
        field.setAddress(c.index, "10");
        for (int box = 0; box < IPAddressField::ADDR_BYTE_SIZE; ++box) {
            EXPECT_EQ(field.getAddress(box), box == c.box ? "10" : "") << c.index;
        }
        EXPECT_EQ(field.getAddress(c.index), "10");
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
    struct Case {
        const int* mode;
        bool showText;
        std::string expected;
    };
    for (const Case& c : {Case{nullptr, true, boxes}, Case{&EDIT, false, boxes},
                          Case{&CONFIRM, true, text + hidden}, Case{&CONFIRM, false, hidden},
                          Case{&OTHER, true, text}, Case{&OTHER, false, ""}}) {
        IPAddrMaskField field("n", "", "", c.mode, c.showText);
        static_cast<IPAddressField&>(field).setDisplayMode(c.mode == &EDIT ? &OTHER : &EDIT);
        field.setOnFocusFunction("go", "");
        field.setAddress(ADDRESS);
        field.setMaskBit(24);
        EXPECT_EQ(printedWithFlushes(field), c.expected);
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

}  // namespace
