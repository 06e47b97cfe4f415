#include "gui/FormInfo.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

#include "gui/Cookie.h"
#include "orv/PException.h"
#include "support/Captured.h"
#include "support/CgiRequest.h"
#include "support/Files.h"

using ORVLib::PException;
using ORVLib::Gui::Cookie;
using ORVLib::Gui::FormInfo;

namespace {

constexpr int MODULE = 0x802;

TEST(UrlEncoded, IsSplitAndDecodedTheSameInQueryAndBody) {
    for (const TextCase& c : {TextCase{"", ""},
                              TextCase{"b=2&a=1", "a=1&b=2"},
                              TextCase{"a=1&&b=2&", "a=1&b=2"},
                              TextCase{"&&&", ""},
                              TextCase{"a=1&a=2", "a=2"},
                              TextCase{"a=b=c", "a=b"},
                              TextCase{"=v", "v="},
                              TextCase{"a", "a="},
                              TextCase{"=&==&a=1", "a=1"},
                              TextCase{"A=1&a=2&\xe4=3", "A=1&a=2&\xe4=3"},
                              TextCase{"name_of_a=1&\xe4"
                                       "ame_of_a=2&name_of_a=3",
                                       "name_of_a=3&\xe4"
                                       "ame_of_a=2"},
                              TextCase{"a+b=c+d", "a b=c d"},
                              TextCase{"x=%41%2b+", "x=A+ "},
                              TextCase{"%41%3d=%26", "A==&"},
                              TextCase{"x=%4g", "x=\x04"},
                              TextCase{"x=%g4|", bytes("x=\0|")},
                              TextCase{"x=%zz", bytes("x=\0")},
                              TextCase{"x=%0x1", bytes("x=\0") + "1"},
                              TextCase{"x=%-1", "x=\xff"},
                              TextCase{"x=%\t5", "x=\x05"},
                              TextCase{"x=%%414", bytes("x=\0") + "14"},
                              TextCase{"x=%a4%A2", "x=\xa4\xa2"}}) {
        CgiRequest request;
        request.get(c.text);
        EXPECT_EQ(FormInfo().getQueryString(), c.expected) << "GET " << c.text;
        request.postForm(c.text);
        EXPECT_EQ(FormInfo().getQueryString(), c.expected) << "POST " << c.text;
    }
}

TEST(UrlEncoded, ThatEndsInsideAnEscapeIsRefused) {
    for (const char* const text : {"x=%4", "x=%", "%=1", "a%4=1", "a=1&b=%", "x=%41%"}) {
        CgiRequest request;
        request.get(text);
        EXPECT_THROW(FormInfo(), std::out_of_range) << text;
        request.postForm(text);
        EXPECT_THROW(FormInfo(), std::out_of_range) << text;
    }
}

TEST(UrlEncoded, BodyEndsAtItsFirstNul) {
    CgiRequest request;
    request.postForm(bytes("a=1&b=2\0&c=%"));
    EXPECT_EQ(FormInfo().getQueryString(), "a=1&b=2");
}

TEST(UrlEncoded, BodiesAroundAndBeyondTheBufferAreWhole) {
    for (const std::size_t size : {65535U, 65536U, 65537U, 100000U, 0x200000U}) {
        CgiRequest request;
        const std::string value(size - 2, 'v');
        request.postForm("a=" + value);
        EXPECT_TRUE(FormInfo().getQueryString() == "a=" + value) << size;
    }
    std::string body;
    for (int i = 0; i < 100000; ++i) {
        body += "f" + std::to_string(i) + "=" + std::to_string(i) + "&";
    }
    CgiRequest request;
    request.postForm(body);
    EXPECT_EQ(FormInfo().getFields().size(), 100000U);
}

TEST(UrlEncoded, RestOfALongBodyIsWhatOneReadBrings) {
    CgiRequest request;
    request.post("", std::string(70000, 'v'), "80000");
    EXPECT_EQ(FormInfo().getQueryString().size(), 70001U);
}

TEST(Body, LengthDecidesWhatIsRead) {
    using Length = std::tuple<const char*, const char*, bool>;
    for (const auto& [announced, joined, skipped] :
         {Length{"3", "a=1", false}, Length{"2", "a=", false}, Length{"0", "", false},
          Length{"-1", "", false}, Length{"-2147483648", "", false},
          Length{"-99999999999999999999", "", false}, Length{"", "", false}, Length{"x", "", false},
          Length{" +3x", "a=1", false}, Length{"2097153", "", true}, Length{"4294967299", "", true},
          Length{"99999999999999999999", "", true}}) {
        CgiRequest request;
        request.post("", "a=1", announced);
        FormInfo form;
        EXPECT_EQ(form.getQueryString(), joined) << announced;
        EXPECT_EQ(form.isReadSkip(), skipped) << announced;
    }
}

TEST(Body, AboveTheLimitWaitsForReadSkipData) {
    CgiRequest request;
    request.postForm("a=" + std::string(0x200000 - 1, 'v'));
    FormInfo form;
    std::string value;
    EXPECT_TRUE(form.isReadSkip());
    EXPECT_FALSE(form.getFormData("a", value));
    form.readSkipData();
    EXPECT_FALSE(form.isReadSkip());
    EXPECT_TRUE(form.getFormData("a", value));
    EXPECT_EQ(value.size(), 0x200000U - 1);
    form.readSkipData();
}

void expectRefused(int messageNumber, const std::string& text) {
    try {
        FormInfo form;
        ADD_FAILURE();
    } catch (const PException& e) {
        EXPECT_EQ(e.getExceptionDetail(), 1043U);
        EXPECT_EQ(e.getActionCode(), 1);
        EXPECT_EQ(e.getMessageNumber(), messageNumber);
        EXPECT_EQ(e.getArgument(0).getText(), text);
        EXPECT_EQ(e.getArgument(1).getNumber(), messageNumber == 20011 ? EBADF : 0);
    }
}

TEST(Body, CutShortOrUnreadableThrows) {
    CgiRequest request;
    request.post("", "a=1", "4");
    expectRefused(20020, "FormInfo::readToBuffer: 0 byte read");
    request.post("", "a=1");
    close(STDIN_FILENO);
    expectRefused(20011, "read");
}

TEST(Method, PostIsComparedExactly) {
    CgiRequest request;
    request.postForm("a=1");
    EXPECT_TRUE(FormInfo().isPostMethod());
    setenv("QUERY_STRING", "q=1", 1);
    for (const char* const method : {"post", "POST ", "GET", ""}) {
        setenv("REQUEST_METHOD", method, 1);
        EXPECT_FALSE(FormInfo().isPostMethod()) << method;
        EXPECT_EQ(FormInfo().getQueryString(), "q=1") << method;
    }
    unsetenv("REQUEST_METHOD");
    unsetenv("QUERY_STRING");
    EXPECT_EQ(FormInfo().getQueryString(), "");
}

TEST(Host, ThatIsUnknownIsLogged) {
    CgiRequest request;
    request.get("");
    unsetenv("HTTP_HOST");
    unsetenv("SERVER_PORT");
    const CapturedTrace trace;
    FormInfo form;
    EXPECT_TRUE(trace.has(0, MODULE, "FormInfo::getenv(HTTP_HOST)"));
    EXPECT_TRUE(trace.has(0, MODULE, "FormInfo::getenv(SERVER_PORT)"));
}

TEST(Address, IsReadFromFourFieldsCutToBytes) {
    struct Address {
        const char* query;
        bool found;
        unsigned char bytes[4];
    };
    for (const Address& c :
         {Address{"ip0=192&ip1=168&ip2=0&ip3=10", true, {192, 168, 0, 10}},
          Address{"ip0=256&ip1=-1&ip2=x&ip3=", true, {0, 255, 0, 0}},
          Address{"ip0=4294967297&ip1=-4294967297&ip2=2147483648&ip3=1", true, {255, 0, 255, 1}},
          Address{"ip0=1&ip1=2&ip2=3", false, {1, 2, 3, 99}},
          Address{"ip=1", false, {99, 99, 99, 99}}}) {
        CgiRequest request;
        request.get(c.query);
        unsigned char address[4] = {99, 99, 99, 99};
        EXPECT_EQ(FormInfo().getFormIPAddr("ip", address), c.found) << c.query;
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(address[i], c.bytes[i]) << c.query << " byte " << i;
        }
    }
}

TEST(Cookie, IsReadFromTheStartOfTheHeader) {
    using Case = std::tuple<const char*, bool, const char*>;
    for (const auto& [header, error, sessionId] :
         {Case{"sid=ABC", false, "ABC"}, Case{"sid=", false, ""},
          Case{"sid=ABC; x=1", false, "ABC; x=1"}, Case{"SID=ABC", true, ""},
          Case{" sid=ABC", true, ""}, Case{"lang=en; sid=ABC", true, ""}, Case{"sid", true, ""},
          Case{"", true, ""}}) {
        setenv("HTTP_COOKIE", header, 1);
        EXPECT_EQ(Cookie().isError(), error) << header;
        EXPECT_EQ(Cookie().getSessionId(), sessionId) << header;
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
