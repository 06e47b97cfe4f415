#include <gtest/gtest.h>

#include "gui/MessageMgr.h"

using ORVLib::Gui::MessageMgr;

namespace {

struct Case {
    const char* text;
    const char* expected;
};

std::string html(std::string text) {
    MessageMgr::convertHTML(text);
    return text;
}

std::string everyByte() {
    std::string text;
    for (int byte = 0; byte < 256; ++byte) {
        text += static_cast<char>(byte);
    }
    return text;
}

TEST(ConvertHtml, EscapesWhatEndsATextOrAnAttribute) {
    for (const Case& c : {
             Case{"", ""},
             Case{"plain", "plain"},
             Case{"a<b & c", "a&lt;b&nbsp;&amp;&nbsp;c"},
             Case{"&lt;", "&amp;lt;"},
             Case{"\"x\" > 'y'", "&quot;x&quot;&nbsp;&gt;&nbsp;'y'"},
             Case{"  ", "&nbsp;&nbsp;"},
         }) {
        EXPECT_EQ(html(c.text), c.expected);
    }
}

TEST(ConvertHtml, GivesWhatFiveReplacementsInOrderGive) {
    std::string expected = everyByte() + "&amp; <<>>" + everyByte();
    std::string text = expected;
    MessageMgr::convertStr(expected, "&", "&amp;");
    MessageMgr::convertStr(expected, "<", "&lt;");
    MessageMgr::convertStr(expected, ">", "&gt;");
    MessageMgr::convertStr(expected, "\"", "&quot;");
    MessageMgr::convertStr(expected, " ", "&nbsp;");
    EXPECT_EQ(html(text), expected);
}

TEST(EncodeUrl, EncodesBlanksHashesAndHighBytesOnly) {
    for (const Case& c : {
             Case{"", ""},
             Case{"a b#c", "a+b%23c"},
             Case{"\xa4\x80\xff", "%A4%80%FF"},
             Case{"50%", "50%"},
             Case{"/x?a=1&b=+%20\x7f\n", "/x?a=1&b=+%20\x7f\n"},
         }) {
        std::string text = c.text;
        MessageMgr::encodeURL(text);
        EXPECT_EQ(text, c.expected);
    }
}

TEST(ConvertStr, ReplacesLeftToRightAndNeverInWhatItPutIn) {
    struct Replacement {
        const char* text;
        const char* from;
        const char* to;
        const char* expected;
    };
    for (const Replacement& c : {
             Replacement{"aaaaa", "aa", "b", "bba"},
             Replacement{"ab", "a", "aa", "aab"},
             Replacement{"xyx", "x", "", "y"},
             Replacement{"same", "absent", "z", "same"},
             Replacement{"left alone", "", "z", "left alone"},
         }) {
        std::string text = c.text;
        MessageMgr::convertStr(text, c.from, c.to);
        EXPECT_EQ(text, c.expected);
    }
}

}  // namespace
