#include <gtest/gtest.h>

#include "component/Printing.h"
#include "gui/FileField.h"
#include "gui/Image.h"
#include "gui/SelectFile.h"
#include "support/Files.h"

using namespace ORVLib::Gui;

namespace {

TEST(FileField, PrintsEachDisplayMode) {
    const char* const inputs =
        "<input type=\"file\" name=\"browse_upfile\" style=\"display: none;\">\n"
        "<input type=\"text\" readonly size=\"40\" name=\"upfile\" value=\"a<b\">\n"
        "<input type=\"button\""
        " onClick=\"browse_upfile.click();upfile.value=browse_upfile.value;\" value=\"Browse\">";
    struct Case {
        const int* mode;
        const char* value;
        const char* expected;
    };
    for (const Case& c :
         {Case{nullptr, "a<b", inputs}, Case{&EDIT, "a<b", inputs},
          Case{&CONFIRM, "a<b", "a<b\n^<input type=\"hidden\" name=\"upfile\" value=\"a<b\">"},
          Case{&CONFIRM, "", "&nbsp;\n^<input type=\"hidden\" name=\"upfile\" value=\"\">"},
          Case{&OTHER, "a<b", "a<b"}, Case{&OTHER, "", "&nbsp;"}}) {
        const FileField field("upfile", c.value, "f", "Browse", 40, c.mode);
        EXPECT_EQ(printedWithFlushes(field), c.expected);
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
    struct Case {
        const char* width;
        const char* height;
        unsigned int maxWidth, maxHeight;
        const char* expected;
    };
    for (const Case& c :
         {Case{"400", "100", 200, 200, "200 by 50"}, Case{"100", "400", 200, 200, "50 by 200"},
          Case{"300", "200", 100, 100, "100 by 66"}, Case{"0200", "0100", 200, 100, "0200 by 0100"},
          Case{"400", "400", 200, 100, "100 by 100"}, Case{"", "400", 200, 200, " by 400"},
          Case{"400", "", 200, 200, "400 by "}, Case{"400", "0", 200, 0, "200 by 0"},
          Case{"0", "400", 200, 200, "0 by 200"}, Case{"400", "300", 200, 0, "0 by 0"},
          Case{"400", "300", 0, 200, "0 by 0"}, Case{"x", "y", 200, 200, "x by y"},
          Case{"-1", "-1", 200, 200, "200 by 200"},
          Case{"4294967297", "100", 200, 200, "200 by 0"}}) {
        Image image("");
        image.setImageDispSize(c.width, c.height);
        const bool isSized = c.width[0] != '\0' && c.height[0] != '\0';
        EXPECT_EQ(image.resizeImageDispSize(c.maxWidth, c.maxHeight), isSized);
        EXPECT_EQ(sizeOf(image), c.expected) << c.width << " by " << c.height;
    }
}

TEST(Image, ZoomsUnlessNothingWouldBeLeft) {
    struct Case {
        const char* width;
        const char* height;
        unsigned int factor;
        bool divide, result;
        const char* expected;
    };
    for (const Case& c :
         {Case{"3", "5", 4, false, true, "12 by 20"}, Case{"9", "17", 4, true, true, "2 by 4"},
          Case{"3", "5", 4, true, false, "3 by 5"}, Case{"5", "3", 4, true, false, "5 by 3"},
          Case{"3", "5", 0, true, false, "3 by 5"}, Case{"", "5", 2, false, false, " by 5"},
          Case{"3", "", 2, false, false, "3 by "},
          Case{"65536", "3", 65536, false, false, "65536 by 3"},
          Case{"-2", "4294967297", 1, false, true, "4294967294 by 2147483647"}}) {
        Image image("");
        image.setImageDispSize(c.width, c.height);
        EXPECT_EQ(image.zoomImageDispSize(c.factor, c.divide), c.result);
        EXPECT_EQ(sizeOf(image), c.expected) << c.width << " by " << c.height;
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
