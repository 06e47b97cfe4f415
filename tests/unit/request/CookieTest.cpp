#include "gui/Cookie.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/Captured.h"

using ORVLib::Gui::Cookie;

namespace {

TEST(Cookie, IsReadFromTheStartOfTheHeader) {
    struct Case {
        const char* header;
        bool error;
        const char* sessionId;
    };
    for (const Case& c : {Case{"sid=ABC", false, "ABC"}, Case{"sid=", false, ""},
                          Case{"sid=ABC; x=1", false, "ABC; x=1"}, Case{"SID=ABC", true, ""},
                          Case{" sid=ABC", true, ""}, Case{"lang=en; sid=ABC", true, ""},
                          Case{"sid", true, ""}, Case{"", true, ""}}) {
        setenv("HTTP_COOKIE", c.header, 1);
        EXPECT_EQ(Cookie().isError(), c.error) << c.header;
        EXPECT_EQ(Cookie().getSessionId(), c.sessionId) << c.header;
    }
    unsetenv("HTTP_COOKIE");
    EXPECT_TRUE(Cookie().isError());
}

TEST(Cookie, PrintsOneHeaderLine) {
    Cookie cookie;
    EXPECT_EQ(printed(cookie), "Set-Cookie: sid=\n");
    cookie.setSessionId("ABC; x=1");
    EXPECT_EQ(printed(cookie), "Set-Cookie: sid=ABC; x=1\n");
    cookie.setExpired(true);
    EXPECT_EQ(printed(cookie),
              "Set-Cookie: sid=ABC; x=1; path=/; expires=Thu,01-Jan-1970 09:00:00 GMT\n");
    cookie.setSessionId("A\r\nLocation: http://elsewhere/");
    EXPECT_EQ(printed(cookie), "Set-Cookie: sid=A; path=/; expires=Thu,01-Jan-1970 09:00:00 GMT\n");
}

}  // namespace
