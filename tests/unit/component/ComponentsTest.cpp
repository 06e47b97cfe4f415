#include <gtest/gtest.h>

#include <climits>
#include <memory>

#include "gui/Button.h"
#include "gui/HiddenField.h"
#include "gui/HyperLink.h"
#include "gui/JsFunction.h"
#include "gui/MetaTag.h"
#include "gui/ResetButton.h"
#include "gui/SubmitButton.h"
#include "gui/TextString.h"
#include "support/Captured.h"
#include "support/Files.h"

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
    struct Case {
        TextString text;
        const char* expected;
    };
    for (const Case& c :
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
        EXPECT_EQ(printed(c.text), c.expected);
        EXPECT_EQ(printed(c.text), c.expected) << "printing must not change the text";
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

}  // namespace
