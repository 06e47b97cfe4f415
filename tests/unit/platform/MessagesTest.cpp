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

// Every message that the library shows stands in both languages, the Japanese one in EUC-JP.
TEST(OperatorText, ExistsInBothLanguages) {
    for (const int messageId : {11, 13, 14, 20, 24, 78, 79, 105}) {
        EXPECT_EQ(operatorText(1, messageId).find("message "), std::string::npos) << messageId;
        const std::string japanese = operatorText(0, messageId);
        EXPECT_EQ(japanese.substr(japanese.size() - 2), "\xa1\xa3") << messageId;  // full stop
        for (const char character : japanese) {
            EXPECT_GE(static_cast<unsigned char>(character), 0xa1) << messageId;
        }
    }
    EXPECT_EQ(operatorText(1, 9999), "message 9999");
}

}  // namespace
