#include "orv/Messages.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string operatorText(int language, int messageId, ...) {
    char buffer[ORV_MESSAGE_SIZE];
    va_list arguments;
    va_start(arguments, messageId);
    std::string text = lgui_getmsgv(language, messageId, buffer, arguments);
    va_end(arguments);
    return text;
}

// Ends with a full stop; "LED" is the one word in another character set.
void expectEucSentence(std::string text, int messageId) {
    EXPECT_EQ(text.substr(text.size() - 2), "\xa1\xa3") << messageId;
    if (const auto led = text.find("LED"); led != std::string::npos) {
        text.erase(led, 3);
    }
    for (const char character : text) {
        EXPECT_GE(static_cast<unsigned char>(character), 0xa1) << messageId;
    }
}

TEST(LogText, TakesTheDocumentedArguments) {
    char buffer[ORV_MESSAGE_SIZE];
    EXPECT_STREQ(lmsg_getmsg(20001, buffer, "CGI"), "CGI program started");
    EXPECT_STREQ(lmsg_getmsg(20008, buffer, "op", 47, 48),
                 "op: wrong message size, got 47 bytes, expected 48");
    EXPECT_STREQ(lmsg_getmsg(20011, buffer, "read", 5), "read failed, errno 5");
    EXPECT_STREQ(lmsg_getmsg(20030, buffer, "op", "PException", 0x404),
                 "op: PException, detail 0x404");
    EXPECT_STREQ(lmsg_getmsg(1, buffer), "message 1");
}

TEST(LogText, IsCutAtTheBuffersEnd) {
    char buffer[ORV_MESSAGE_SIZE];
    const std::string longName(10000, 'x');
    EXPECT_EQ(std::string(lmsg_getmsg(20001, buffer, longName.c_str())),
              std::string(ORV_MESSAGE_SIZE - 1, 'x'));
}

// Every message that the library and the console show exists in both languages.
TEST(OperatorText, ExistsInBothLanguages) {
    for (const int messageId :
         {1, 2, 11, 13, 14, 20, 24, 78, 79, 105, 360, 361, 362, 1103, 1104, 1105, 1202}) {
        EXPECT_EQ(operatorText(1, messageId).find("message "), std::string::npos) << messageId;
        expectEucSentence(operatorText(0, messageId), messageId);
    }
    EXPECT_EQ(operatorText(1, 9999), "message 9999");
}

// One text, in which nothing is a format.
TEST(OperatorText, TakesTheDetailOfAnEvent) {
    constexpr char ENGLISH_DETAIL[] = "100%n %s%%";
    constexpr char JAPANESE_DETAIL[] = "\xbe\xdc\xba\xd9";
    for (const int messageId : {1101, 1102, 1106, 1107, 1108, 1201, 1301, 1302, 1303, 1304,
                                1401, 1402, 1403, 1404, 1405, 1406, 1501, 1502, 1503, 1601}) {
        EXPECT_NE(operatorText(1, messageId, ENGLISH_DETAIL).find(ENGLISH_DETAIL),
                  std::string::npos)
            << messageId;
        const std::string japanese = operatorText(0, messageId, JAPANESE_DETAIL);
        EXPECT_NE(japanese.find(JAPANESE_DETAIL), std::string::npos) << messageId;
        expectEucSentence(japanese, messageId);
    }
}

}  // namespace
