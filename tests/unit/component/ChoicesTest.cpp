#include <gtest/gtest.h>

#include <climits>
#include <utility>

#include "component/Printing.h"
#include "gui/CheckBox.h"
#include "gui/RadioButton.h"
#include "gui/SelectMenu.h"

using namespace ORVLib::Gui;

namespace {

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

}  // namespace
