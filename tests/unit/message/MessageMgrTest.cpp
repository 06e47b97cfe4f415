#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <tuple>

#include "gui/MessageMgr.h"
#include "orv/CsvInfoAccess.h"
#include "support/Captured.h"
#include "support/Files.h"

using ORVLib::Gui::MessageMgr;
using ORVLib::ORVUi::CsvInfoAccess;

namespace {

constexpr int MODULE = 0x803;
const std::string FALLBACK = "failed to read string for CGI";
const std::string FOLDER = TEST_SITE "/etc/orv/trace/";

TEST(ConvertHtml, EscapesWhatEndsATextOrAnAttribute) {
    for (const TextCase& c :
         {TextCase{"", ""}, TextCase{"plain", "plain"},
          TextCase{"a<b & c", "a&lt;b&nbsp;&amp;&nbsp;c"}, TextCase{"&lt;", "&amp;lt;"},
          TextCase{"\"x\" > 'y'", "&quot;x&quot;&nbsp;&gt;&nbsp;'y'"},
          TextCase{"  ", "&nbsp;&nbsp;"}, TextCase{"\x01\n$\x7f\x80\xff", "\x01\n$\x7f\x80\xff"}}) {
        std::string text = c.text;
        MessageMgr::convertHTML(text);
        EXPECT_EQ(text, c.expected);
    }
}

TEST(EncodeUrl, EncodesBlanksHashesAndHighBytesOnly) {
    for (const TextCase& c :
         {TextCase{"", ""}, TextCase{"a b#c", "a+b%23c"}, TextCase{"\xa4\x80\xff", "%A4%80%FF"},
          TextCase{"50%", "50%"}, TextCase{"/x?a=1&b=+%20\x7f\n", "/x?a=1&b=+%20\x7f\n"}}) {
        std::string text = c.text;
        MessageMgr::encodeURL(text);
        EXPECT_EQ(text, c.expected);
    }
}

TEST(ConvertStr, ReplacesLeftToRightAndNeverInWhatItPutIn) {
    using Replacement = std::tuple<const char*, const char*, const char*, const char*>;
    for (const auto& [before, from, to, expected] :
         {Replacement{"aaaaa", "aa", "b", "bba"}, Replacement{"ab", "a", "aa", "aab"},
          Replacement{"xyx", "x", "", "y"}, Replacement{"same", "absent", "z", "same"},
          Replacement{"left alone", "", "z", "left alone"}}) {
        std::string text = before;
        MessageMgr::convertStr(text, from, to);
        EXPECT_EQ(text, expected);
    }
}

/// Writes the English catalogue and reads it.
class Catalogue : public testing::Test {
protected:
    Catalogue() {
        std::filesystem::create_directories(FOLDER);
        std::filesystem::remove(FOLDER + "cgistr.out");
        std::filesystem::remove(FOLDER + "cgistrj.out");
    }
    static MessageMgr english(const std::string& content) {
        writeFile(FOLDER + "cgistrj.out", content);
        return MessageMgr(1);
    }
};

const std::string THREE = bytes("\0\0\0\3\0\0\0\0\0\0\0\4\0\0\0\5one\0\0last");

TEST_F(Catalogue, GivesEveryStringInAnyOrder) {
    for (const std::string& rest : {std::string(), std::string(2 << 20, '\0')}) {
        MessageMgr messages = english(THREE + rest);
        EXPECT_EQ(messages.getString(2), "last");  // without rest, runs to the end of the file
        EXPECT_EQ(messages.getString(0), "one");
        EXPECT_EQ(messages.getString(1), "");
        EXPECT_EQ(messages.getString(2), "last");
        for (const int absent : {3, INT_MAX, -1, INT_MIN}) {
            EXPECT_EQ(messages.getString(absent), FALLBACK);
        }
    }
}

TEST_F(Catalogue, IsChosenByLanguage) {
    writeFile(FOLDER + "cgistr.out", bytes("\0\0\0\1\0\0\0\0ja"));
    writeFile(FOLDER + "cgistrj.out", bytes("\0\0\0\1\0\0\0\0en"));
    EXPECT_EQ(MessageMgr(0).getString(0), "ja");
    for (const int language : {1, 2, -1, INT_MAX}) {
        EXPECT_EQ(MessageMgr(language).getString(0), "en");
    }
}

TEST_F(Catalogue, ThatIsMissingOrAFolderIsLoggedAndFallsBack) {
    for (int round = 0; round < 2; ++round) {
        const CapturedTrace trace;
        EXPECT_EQ(MessageMgr(0).getString(0), FALLBACK);
        EXPECT_TRUE(trace.has(0, MODULE, FOLDER + "cgistr.out"));
        std::filesystem::create_directory(FOLDER + "cgistr.out");
    }
}

TEST_F(Catalogue, ThatLiesIsNeverReadOutside) {
    for (const std::string& damaged :
         {bytes(""), bytes("\0\0\0"), bytes("\0\0\0\2\0\0\0\0\0\0"), bytes("\xff\xff\xff\xff"),
          bytes("\x40\0\0\0\0\0\0\0"), bytes("\0\0\0\4\0\0\0\0\0\0\0\0\0\0\0\0")}) {
        const CapturedTrace trace;
        EXPECT_EQ(english(damaged).getString(0), FALLBACK);
        EXPECT_TRUE(trace.has(0, MODULE, "cgistrj.out"));
    }
    EXPECT_EQ(english(bytes("\0\0\0\0")).getString(0), FALLBACK);
    MessageMgr farOffset = english(bytes("\0\0\0\2\xff\xff\xff\xff\0\0\0\0text\0"));
    EXPECT_EQ(farOffset.getString(0), "");
    EXPECT_EQ(farOffset.getString(1), "text");
}

TEST(Message, CarriesItsCodeWhenPositive) {
    MessageMgr messages(1);
    const std::string text = messages.getMessage(13, 0);
    EXPECT_NE(text.find("not able to answer"), std::string::npos);
    using Case = std::tuple<int, const char*>;
    for (const auto& [code, suffix] :
         {Case{-1, ""}, Case{INT_MIN, ""}, Case{26, " (00:001a)"}, Case{0x1234, " (00:1234)"},
          Case{0x12345678, " (00:12345678)"}}) {
        EXPECT_EQ(messages.getMessage(13, code), text + suffix);
    }
}

TEST(Message, ShowsTheExceptionFamilyOfCode700) {
    MessageMgr messages(1);
    const std::string text = messages.getMessage(79, 0);
    EXPECT_EQ(messages.getExpMessage(79, 0x700, 0x05), text + " (00:0d05)");
    EXPECT_EQ(messages.getExpMessage(79, 0x700, 0xff), text + " (00:0dff)");
    EXPECT_EQ(messages.getExpMessage(79, 0x701, 0x05), text + " (00:0701)");
    EXPECT_EQ(messages.getExpMessage(79, 0, 0x05), text);
}

TEST(CsvMessageNumber, StandsBehindTheKey) {
    const std::string path = testing::TempDir() + "explanations.csv";
    writeFile(path, "1,500,text\n4294967295,7\n2,0\n3,x\n4\n");
    CsvInfoAccess csv(path);
    MessageMgr messages(1);
    const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
    using Case = std::tuple<unsigned int, bool, unsigned int>;
    for (const auto& [key, found, expected] :
         {Case{1, true, 500}, Case{4294967295U, true, 7}, Case{2, false, 99}, Case{3, false, 99},
          Case{4, false, 99}, Case{5, false, 99}}) {
        const CapturedTrace trace;
        unsigned int number = 99;
        EXPECT_EQ(messages.getCsvExMsgId(csv, key, number), found) << key;
        EXPECT_EQ(number, expected);
        EXPECT_EQ(trace.has(0, MODULE, "MessageMgr::getCsvExMsgId() tmpId"), !found);
    }
    std::locale::global(before);
    const CapturedTrace trace;
    CsvInfoAccess missing(path + ".missing");
    unsigned int number = 99;
    EXPECT_FALSE(messages.getCsvExMsgId(missing, 1, number));
    EXPECT_TRUE(trace.entries().empty());
}

}  // namespace
