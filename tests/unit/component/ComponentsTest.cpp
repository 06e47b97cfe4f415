#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <tuple>
#include <utility>

#include "support/Captured.h"
#include "support/Components.h"
#include "support/Files.h"
#include "support/Printing.h"

using namespace ORVLib::Gui;

namespace {

TEST(Buttons, PrintTheirAttributes) {
    EXPECT_EQ(printed(Button("n", "v")), R"(<input type="button" name="n" value="v">)");
    EXPECT_EQ(printed(Button("n", "v", "f", 7, "'go'", true)),
              R"(<input type="button" name="n" value="v" onClick='go' disabled>)");
    EXPECT_EQ(printed(SubmitButton("n", "v")), R"(<input type="submit" name="n" value="v">)");
    EXPECT_EQ(printed(SubmitButton("n", "v", "f", 7, "'go'")),
              R"(<input type="submit" name="n" value="v" onClick='go'>)");
    EXPECT_EQ(printed(ResetButton("n", "v", "f")), R"(<input type="reset" name="n" value="v">)");
}

TEST(HiddenField, EscapesDoubleQuotesOnlyAndKeepsItsValue) {
    const HiddenField field("n", R"("<&>" 'x')");
    EXPECT_EQ(printed(field), R"(<input type="hidden" name="n" value="&quot;<&>&quot; 'x'">)");
    EXPECT_EQ(field.getValue(), R"("<&>" 'x')");
}

TEST(TextString, IsEscapedAndColoured) {
    using Case = std::tuple<TextString, const char*>;
    for (const auto& [text, expected] :
         {Case{TextString("a<b c"), "a&lt;b&nbsp;c"},
          Case{TextString("a<b c", false, true), "a<b c"},
          Case{TextString("x", true, false, 0), "<font class=\"err_string\">x</font>"},
          Case{TextString("x", false, false, 1), "<font class=\"warning_string\">x</font>"},
          Case{TextString("x", false, false, 2), "<font class=\"degrade_string\">x</font>"},
          Case{TextString("x", false, false, 3), "<font class=\"normal_green\">x</font>"},
          Case{TextString("x", false, false, 4), "<font class=\"white_string\">x</font>"},
          Case{TextString("<", false, true, 5), "<font class=\"mainte_string\"><</font>"},
          Case{TextString("x", false, false, 6), "x"},
          Case{TextString("x", false, false, INT_MAX), "x"},
          Case{TextString("x", false, false, -1), "x"},
          Case{TextString("x", false, false, INT_MIN), "x"},
          Case{TextString(bytes("up to\0here")), "up&nbsp;to"}}) {
        EXPECT_EQ(printed(text), expected);
        EXPECT_EQ(printed(text), expected) << "printing must not change the text";
    }
}

TEST(HyperLink, FollowsItsUrlOrRunsItsScript) {
    HyperLink link("/a?b", "CONT_FRAME");
    EXPECT_EQ(printed(link), R"(<a href="/a?b" target="CONT_FRAME" onClick='blur()'></a>)");
    link.setCssClass("c");
    link.setContent(std::make_unique<TextString>("<"));
    EXPECT_EQ(printed(link),
              R"(<a class="c" href="/a?b" target="CONT_FRAME" onClick='blur()'>&lt;</a>)");
    const HyperLink script("/a?b", "t", "", "go(1)", true, std::make_unique<TextString>("x"));
    EXPECT_EQ(printed(script), "<a href=\"#\" onClick='go(1);blur()'>x</a>");
    EXPECT_EQ(printed(HyperLink("")), R"(<a href="" target="" onClick='blur()'></a>)");
}

TEST(JsFunction, PrintsItsLinesInOrder) {
    EXPECT_EQ(printed(JsFunction("f()")), "function f(){\n}\n");
    JsFunction function("check(form)");
    function.addFunction("var i = 0;");
    function.addFunction("go", "a'b");
    function.addArray("none", {});
    function.addArray("a", {"1", bytes("2\0x")});
    function.addMessage("key", "text");
    function.addAlertFunction("No");
    EXPECT_EQ(printed(function),
              "function check(form){\nvar i = 0;\ngo(\"a'b\");\nnone = new Array();\n"
              "a = new Array(\"1\", \"2\");\nstrMSG[\"key\"] = \"text\";\nalert(\"No \");\n}\n");
}

TEST(MetaTag, IsANameOrAnHttpHeader) {
    EXPECT_EQ(printed(MetaTag("FRAME-ID", "M-ERROR-0-00")),
              R"(<meta name="FRAME-ID" content="M-ERROR-0-00">)");
    EXPECT_EQ(printed(MetaTag("Refresh", "30")), R"(<meta http-equiv="Refresh" content="30">)");
    EXPECT_EQ(printed(MetaTag("Refresh", "0", "/common/timeout.cgi")),
              R"(<meta http-equiv="Refresh" content="0;URL=/common/timeout.cgi">)");
    EXPECT_EQ(printed(MetaTag("frame-id", "x")), R"(<meta http-equiv="frame-id" content="x">)");
}

TEST(Choices, PrintNothingWithoutEntries) {
    EXPECT_EQ(printedWithFlushes(SelectMenu("n", "v", "f", 0, &CONFIRM, true)), "");
    EXPECT_EQ(printedWithFlushes(RadioButton("n", "v", "f", "go()", &CONFIRM, true)), "");
    EXPECT_EQ(printedWithFlushes(CheckBox("n", "v", "f", "go()", true, &CONFIRM, true)), "");
}

TEST(SelectMenu, DisablesOnceForEachReason) {
    const auto menuWith = [](const std::string& attributes) {
        return R"(<select name="n" onChange="change(this);" onClick="click();")" + attributes +
               ">\n<option value=\"<\"\" selected><b>\n^</select>";
    };
    const std::string once = R"( class="disabled" disabled)";
    for (const bool disabled : {false, true}) {
        SelectMenu menu("n", "", "", 0, nullptr, disabled);
        menu.setOnChangeFunction("change", "this");
        menu.setOnClickFunction("click", "");
        menu.add("<\"", "<b>");
        const std::string own = disabled ? once : "";
        expectPrinted(menu, menuWith(own), menuWith(own + once));
    }
}

TEST(SelectMenu, SelectsOnlyOptionsThatExist) {
    for (const int index : {-1, 2, INT_MIN, INT_MAX}) {
        SelectMenu menu("n", "", "", index);
        menu.add("a", "A");
        menu.add("b", "B");
        EXPECT_EQ(printedWithFlushes(menu),
                  "<select name=\"n\">\n<option value=\"a\">A\n^<option value=\"b\">B\n^</select>");
        menu.select(1);
        menu.select(index);
        EXPECT_EQ(menu.getSelected(), 1) << index;
    }
    SelectMenu menu("n");
    menu.select(0);
    menu.add("a", "A", true);
    menu.add("b", "B", true);
    EXPECT_EQ(printedWithFlushes(menu),
              "<select name=\"n\">\n<option value=\"a\">A\n^"
              "<option value=\"b\" selected>B\n^</select>");
    menu.select(0);
    EXPECT_EQ(menu.getSelected(), 0);
}

TEST(RadioButton, PrintsLabelsScriptAndTheLastCheckedButton) {
    RadioButton group("n", "v", "f", "go(1)");
    group.add("<", "<b>", false, false);
    EXPECT_EQ(printedWithFlushes(group),
              "<input type=\"radio\" name=\"n\" value=\"<\" onClick=\"go(1)\"><b>")
        << "no button is checked at first";
    group.add("b", "B", "id1", true, true);
    group.add("c", "C", "id2", true, false);
    group.add("d", "D", false, false);
    EXPECT_EQ(printedWithFlushes(group),
              "<input type=\"radio\" name=\"n\" value=\"<\" onClick=\"go(1)\"><b>\n^"
              "<label for=\"id1\"><input type=\"radio\" name=\"n\" value=\"b\" id=\"id1\""
              " onClick=\"go(1)\" disabled>B</label>\n^"
              "<label for=\"id2\"><input type=\"radio\" name=\"n\" value=\"c\" id=\"id2\""
              " onClick=\"go(1)\" checked>C</label>\n^"
              "<input type=\"radio\" name=\"n\" value=\"d\" onClick=\"go(1)\">D");
}

TEST(CheckBox, PrintsItsBoxesAndScript) {
    CheckBox group("unused", "unused");
    group.add("n1", "<", "<b>");
    group.add("n2", "b", "B", "id", true, true);
    EXPECT_EQ(printedWithFlushes(group),
              "<input type=\"checkbox\" name=\"n1\" value=\"<\"><b>\n^"
              "<input type=\"checkbox\" name=\"n2\" value=\"b\" id=\"id\" checked disabled>B");
    CheckBox script("", "", "", "'go()'");
    script.add("n", "v", "");
    EXPECT_EQ(printedWithFlushes(script),
              "<input type=\"checkbox\" name=\"n\" value=\"v\" onClick='go()'>");
    script.setOnClick("go()");
    script.setQuoteScript(true);
    EXPECT_EQ(printedWithFlushes(script),
              "<input type=\"checkbox\" name=\"n\" value=\"v\" onClick=\"go()\">");
}

TEST(RadioButtonAndCheckBox, DisableOnceForAnyReason) {
    const std::string radioStart = R"(<input type="radio" name="n" value="v")";
    const std::string checkStart = R"(<input type="checkbox" name="n" value="v")";
    for (const auto& [group, own] : {std::pair{false, false}, {false, true}, {true, false}}) {
        const char* const editable = group || own ? " disabled>" : ">";
        RadioButton radio("n", "", "", "", nullptr, group);
        radio.add("v", "", false, own);
        expectPrinted(radio, radioStart + editable, radioStart + " disabled>");
        CheckBox check("", "", "", "", false, nullptr, group);
        check.add("n", "v", "", "", false, own);
        expectPrinted(check, checkStart + editable, checkStart + " disabled>");
    }
}

TEST(FileField, PrintsEachDisplayMode) {
    const char* const inputs =
        "<input type=\"file\" name=\"browse_upfile\" style=\"display: none;\">\n"
        "<input type=\"text\" readonly size=\"40\" name=\"upfile\" value=\"a<b\">\n"
        "<input type=\"button\""
        " onClick=\"browse_upfile.click();upfile.value=browse_upfile.value;\" value=\"Browse\">";
    using Case = std::tuple<const int*, const char*, const char*>;
    for (const auto& [mode, value, expected] :
         {Case{nullptr, "a<b", inputs}, Case{&EDIT, "a<b", inputs},
          Case{&CONFIRM, "a<b", "a<b\n^<input type=\"hidden\" name=\"upfile\" value=\"a<b\">"},
          Case{&CONFIRM, "", "&nbsp;\n^<input type=\"hidden\" name=\"upfile\" value=\"\">"},
          Case{&OTHER, "a<b", "a<b"}, Case{&OTHER, "", "&nbsp;"}}) {
        const FileField field("upfile", value, "f", "Browse", 40, mode);
        EXPECT_EQ(printedWithFlushes(field), expected);
    }
}

TEST(SelectFile, NeverPrintsItsValue) {
    const std::string start = R"(<input type="file" name="n" size="40" value="")";
    SelectFile field("n", "v", "f", 40);
    expectPrinted(field, start + ">\n", start + "disable >\n");
}

std::string sizeOf(const Image& image) {
    std::string width = "?";
    std::string height = "?";
    image.getImageDispSize(width, height);
    return width + " by " + height;
}

TEST(Image, TakesItsSizeFromItsName) {
    for (const TextCase& c :
         {TextCase{"/img/name_120x40.gif", "120 by 40"},
          TextCase{"a_1x1_b_3x4.tar.gz", "3 by 4.tar"}, TextCase{"name-120x40.gif", " by "},
          TextCase{"name_120-40.gif", " by "}, TextCase{"name_120x40", " by "},
          TextCase{"_x.", " by "}, TextCase{"1x2_3.4", "3.4 by 2_3"},
          TextCase{"1.2x3_4", "4 by 3_4"}, TextCase{".x_", " by _"}, TextCase{"_.x", ". by "}}) {
        EXPECT_EQ(sizeOf(Image(c.text)), c.expected) << c.text;
    }
}

TEST(Image, ShrinksToFitABox) {
    using Case = std::tuple<const char*, const char*, unsigned int, unsigned int, const char*>;
    for (const auto& [width, height, maxWidth, maxHeight, expected] :
         {Case{"400", "100", 200, 200, "200 by 50"}, Case{"100", "400", 200, 200, "50 by 200"},
          Case{"300", "200", 100, 100, "100 by 66"}, Case{"0200", "0100", 200, 100, "0200 by 0100"},
          Case{"400", "400", 200, 100, "100 by 100"}, Case{"", "400", 200, 200, " by 400"},
          Case{"400", "", 200, 200, "400 by "}, Case{"400", "0", 200, 0, "200 by 0"},
          Case{"0", "400", 200, 200, "0 by 200"}, Case{"400", "300", 200, 0, "0 by 0"},
          Case{"400", "300", 0, 200, "0 by 0"}, Case{"x", "y", 200, 200, "x by y"},
          Case{"-1", "-1", 200, 200, "200 by 200"},
          Case{"4294967297", "100", 200, 200, "200 by 0"}}) {
        Image image("");
        image.setImageDispSize(width, height);
        const bool isSized = width[0] != '\0' && height[0] != '\0';
        EXPECT_EQ(image.resizeImageDispSize(maxWidth, maxHeight), isSized);
        EXPECT_EQ(sizeOf(image), expected) << width << " by " << height;
    }
}

TEST(Image, ZoomsUnlessNothingWouldBeLeft) {
    using Case = std::tuple<const char*, const char*, unsigned int, bool, bool, const char*>;
    for (const auto& [width, height, factor, divide, result, expected] :
         {Case{"3", "5", 4, false, true, "12 by 20"}, Case{"9", "17", 4, true, true, "2 by 4"},
          Case{"3", "5", 4, true, false, "3 by 5"}, Case{"5", "3", 4, true, false, "5 by 3"},
          Case{"3", "5", 0, true, false, "3 by 5"}, Case{"", "5", 2, false, false, " by 5"},
          Case{"3", "", 2, false, false, "3 by "},
          Case{"65536", "3", 65536, false, false, "65536 by 3"},
          Case{"-2", "4294967297", 1, false, true, "4294967294 by 2147483647"}}) {
        Image image("");
        image.setImageDispSize(width, height);
        EXPECT_EQ(image.zoomImageDispSize(factor, divide), result);
        EXPECT_EQ(sizeOf(image), expected) << width << " by " << height;
    }
}

TEST(Image, PrintsItsAttributes) {
    Image image("a\"<.gif");
    EXPECT_EQ(printedWithFlushes(image), R"(<img src="a"<.gif" border="0" name="" id="" alt="">)");
    image.setImageDispSize("1", "");
    image.setOnClick("'go()'");
    EXPECT_EQ(printedWithFlushes(image),
              R"-(<img src="a"<.gif" width="1" onClick='go()' border="0" name="" id="" alt="">)-");
    Image cell("f_1x2.gif", "alt", true, -1, "n", "i");
    cell.setOnClick("go()");
    cell.setQuoteScript(true);
    EXPECT_EQ(printedWithFlushes(cell),
              "<td><img src=\"f_1x2.gif\" width=\"1\" height=\"2\" onClick=\"go()\""
              " border=\"-1\" name=\"n\" id=\"i\" alt=\"alt\"></td>");
}

}  // namespace
