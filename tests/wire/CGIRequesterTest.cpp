#include "gui/CGIRequester.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "gui/FormInfo.h"
#include "gui/JudgeAuthority.h"
#include "orv/GeneralPurposePacket.h"
#include "protocol/Payload.h"
#include "support/Captured.h"
#include "support/CgiRequest.h"
#include "support/Files.h"
#include "support/ScriptedDaemon.h"

using namespace ORVLib;
using namespace ORVLib::Gui;
using ORVLib::Protocol::Payload;

namespace {

constexpr unsigned int ITEM = 0x02011234;
const std::string SID = "0123456789abcdefghijklmnopqrstu";  // 31 characters

/// The request as the wire shows it, without the process ID, which must be this process's.
std::string withoutProcess(std::string request) {
    EXPECT_EQ(request.substr(8, 4), word(static_cast<unsigned int>(getpid())));
    return request.replace(8, 4, 4, '\0');
}

/// What an operation that succeeds asks for.
std::string asked(const std::string& response,
                  const std::function<unsigned int(CGIRequester&)>& operation) {
    ScriptedDaemon daemon;
    CGIRequester requester((SID + "cut off").c_str());
    const auto requests = daemon.serve({response}, [&] { EXPECT_EQ(operation(requester), 1U); });
    EXPECT_EQ(requester.getSessionId(), SID);
    return requests.empty() ? "" : withoutProcess(requests[0]);
}

std::string header(unsigned int procedure) {
    return message(procedure, telegram(SID, 0));
}

TEST(Exchange, SendsAndFillsExactlyThis) {
    int language = -1;
    EXPECT_EQ(asked(message(0x02010001, telegram("", '\xff')),
                    [&](CGIRequester& r) { return r.getLanguage(language); }),
              header(0x02010001));
    EXPECT_EQ(language, 255);

    std::string sessionId;
    const std::string record =
        padded(std::string(32, 'u'), 36) + padded("p w", 36) + padded(std::string(128, 'c'), 132);
    EXPECT_EQ(asked(message(0x02010002, telegram(std::string(32, 's'), 2)),
                    [&](CGIRequester& r) {
                        return r.login(std::string(40, 'u'), bytes("p w\0x"), std::string(300, 'c'),
                                       language, sessionId);
                    }),
              header(0x02010002) + message(0x02010002, record));
    EXPECT_EQ(language, 2);
    EXPECT_EQ(sessionId, std::string(32, 's'));

    EXPECT_EQ(asked(header(0x02010004), [](CGIRequester& r) { return r.logout(); }),
              header(0x02010004));

    unsigned int interval = 0;
    CGIAuthority authority;
    CGI_AUTHORITY rights{};
    const std::string everyRight = message(0x02010005, telegram(SID, 0, 0xf0000000, 0x0000ffff));
    const std::string answer = message(0x02010005, telegram(SID, 1, 0x80000000, 0x12)) +
                               message(0x02010005, bytes("\x01\x02\x03\x04"));
    for (const bool option : {true, false}) {
        EXPECT_EQ(asked(answer,
                        [&](CGIRequester& r) {
                            return r.checkSession(language, interval, option ? &authority : nullptr,
                                                  option);
                        }),
                  everyRight + message(0x02010005, option ? bytes("\1") : bytes("\0")));
        EXPECT_EQ(language, 1);
        EXPECT_EQ(interval, 0x01020304U);
    }
    authority.getAuthority(rights);
    EXPECT_EQ(rights.roles, 0x80000000);
    EXPECT_EQ(rights.partitions, 0x12U);

    char user[5] = {};
    EXPECT_EQ(asked(message(0x02010025, telegram(SID, 3, 0x10000000)) + message(0, "user"),
                    [&](CGIRequester& r) { return r.getUserInfo(language, authority, user); }),
              header(0x02010025));
    EXPECT_STREQ(user, "user");
    EXPECT_TRUE(authority.isOperator());
}

TEST(Exchange, CarriesInformationItems) {
    char raw[7] = {};
    Payload item;
    struct Case {
        std::function<unsigned int(CGIRequester&)> operation;
        std::string payload;
        const char* raw = "";
        const char* item = "";
    };
    using R = CGIRequester;
    const auto number = [](int result) { return static_cast<unsigned int>(result); };
    const Case cases[] = {
        {[&](R& r) { return number(r.getInfo(ITEM, raw)); }, "", "answer"},
        {[&](R& r) { return number(r.getInfo(ITEM, nullptr)); }, ""},
        {[&](R& r) { return number(r.getInfo(ITEM, raw, 6)); }, "", "answer"},
        {[&](R& r) { return number(r.getInfo(ITEM, item)); }, "", "", "answer"},
        {[&](R& r) { return number(r.getInfo(ITEM, Payload("in"), item)); }, "in", "", "answer"},
        {[&](R& r) { return number(r.callTransaction(ITEM, Payload("do"), item)); }, "do", "",
         "answer"},
        {[&](R& r) { return r.setInfo(ITEM, Payload("set")); }, "set"},
        {[&](R& r) { return r.setInfo(ITEM, 0x10005, "12345678"); }, "12345"},
        {[&](R& r) { return r.setInfo(ITEM, 0, nullptr); }, ""},
        {[&](R& r) { return r.setInfo(ITEM, Payload(std::string(0x10000, 'x'))); }, ""},
    };
    for (const Case& c : cases) {
        item = Payload();
        std::memset(raw, 0, sizeof raw);
        const std::string request = asked(header(ITEM) + message(ITEM, "answer"), c.operation);
        EXPECT_EQ(request, header(ITEM) + (c.payload.empty() ? "" : message(ITEM, c.payload)));
        EXPECT_STREQ(raw, c.raw);
        EXPECT_EQ(item.getBytes(), c.item);
    }
}

struct Failure {
    const char* name;
    std::string response;
    unsigned int detail;
    unsigned char actionCode;
    bool fromConnection = false;
    ScriptedDaemon::Then then = ScriptedDaemon::KEEP_OPEN;
};

std::vector<Failure> failures() {
    constexpr unsigned int CHECK = 0x02010005;
    constexpr ScriptedDaemon::Then HANG_UP = ScriptedDaemon::HANG_UP;
    const std::string good = header(CHECK);
    return {
        {"header of 47 bytes", message(CHECK, telegram("", 0).substr(1)), 0x404, 2},
        {"empty header", message(CHECK, ""), 0x404, 2},
        {"other type", header(0x02010004), 0x402, 2},
        {"error response", errorResponse({1, 2, 3, 7, 1031, 0, 0, 0, 0, 0, 0, 0, 0, 0}), 1031, 7},
        {"damaged error response", message(0x87ff0001, "?"), 0, 0},
        {"empty payload", good + message(CHECK, ""), 0x404, 2},
        {"short payload", good + message(CHECK, "123"), 0x404, 2},
        {"oversized payload", good + message(CHECK, std::string(70000, 'x')), 0x404, 2},
        {"no payload", good, 1029, 2, true},
        {"silence", "", 1029, 2, true},
        {"hung up", "", 1026, 2, true, HANG_UP},
        {"hung up in the payload", good + message(CHECK, "1234").substr(0, 10), 1026, 2, true,
         HANG_UP},
        {"a gigabyte of payload", good + word(CHECK) + word(0x40000000), 1026, 2, true},
    };
}

/// Runs a failing session check and says whether it left its outputs alone.
void failToCheck(CGIRequester& requester) {
    int language = 99;
    unsigned int interval = 99;
    CGIAuthority authority;
    EXPECT_EQ(requester.checkSession(language, interval, &authority, false), 0U);
    EXPECT_EQ(language, 99);
    EXPECT_EQ(interval, 99U);
    EXPECT_FALSE(authority.isSystemAdmin());
}

std::ptrdiff_t openDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST(FailedExchange, IsReportedLoggedAndLeavesOutputsAndNoDescriptor) {
    for (const Failure& failure : failures()) {
        SCOPED_TRACE(failure.name);
        const CapturedTrace trace;
        ScriptedDaemon daemon;
        setenv("ORV_IPC_TIMEOUT_MS", "100", 1);
        CGIRequester requester("A");
        const std::ptrdiff_t before = openDescriptors();
        daemon.serve(
            {failure.response}, [&] { failToCheck(requester); }, failure.then);
        EXPECT_EQ(openDescriptors(), before);
        EXPECT_EQ(requester.getErrorDetail(), failure.detail);
        EXPECT_EQ(requester.getActionCode(), failure.actionCode);
        EXPECT_TRUE(trace.has(0, 1, "CGIRequester::checkSession sid=A procId=0x 2010005"));
        EXPECT_EQ(trace.has(0, 1, ": PException, detail 0x4"), failure.fromConnection);
    }
}

TEST(FailedExchange, WithAnAbsentDaemonOrBadInputIsReported) {
    const CapturedTrace trace;
    CGIRequester requester("A");
    for (const std::string& path : {std::string("/nonexistent/socket"), std::string(200, 'x')}) {
        setenv("ORV_IPC_SOCKET", path.c_str(), 1);
        failToCheck(requester);
        EXPECT_EQ(requester.getErrorDetail(), 1025U);
    }
    EXPECT_EQ(requester.setInfo(ITEM, Payload()), 0U);
    EXPECT_EQ(requester.getErrorDetail(), 0x401U);
    unsetenv("ORV_IPC_SOCKET");

    ScriptedDaemon daemon;
    const auto requests =
        daemon.serve({header(ITEM)}, [&] { EXPECT_EQ(requester.setInfo(ITEM, 5, nullptr), 0U); });
    EXPECT_EQ(requester.getErrorDetail(), 0x402U);
    EXPECT_EQ(requests[0].size(), 56U) << "nothing but the header is sent";
    EXPECT_TRUE(trace.has(0, 1, "CGIRequester::setInfo sid=A procId=0x 2011234"));
}

TEST(ProtocolTrace, HasTheLogsFixedForm) {
    const CapturedTrace trace;
    ScriptedDaemon daemon;
    CGIRequester requester("S");
    int language = 0;
    unsigned int interval = 0;
    daemon.serve({message(0x02010005, telegram("R", 10, 0x60000000, 0xabc)) +
                  message(0x02010005, bytes("\0\0\0\0"))},
                 [&] { requester.checkSession(language, interval, nullptr, false); });
    ASSERT_EQ(trace.entries().size(), 2U);
    EXPECT_EQ(trace.entries()[0].text,
              "REQ-SEND:SID=S PorcID=0x 2010005 lang=0 admin=1 ce=1 guset=1 part=0xffff");
    EXPECT_EQ(trace.entries()[1].text,
              "REQ-RECV:SID=R ResponseID=0x 2010005 lang=a admin=0 ce=1 guset=1 part=0xabc");
    EXPECT_EQ(trace.entries()[0].level, 200);
}

TEST(DebugTrace, WritesHexadecimalLines) {
    const CapturedTrace trace;
    CGIRequester requester;
    const std::string data(41, '\xab');
    const auto* const from = reinterpret_cast<const unsigned char*>(data.data());
    requester.debugTrace(from, 0);
    requester.debugTrace(from, -1);
    EXPECT_TRUE(trace.entries().empty());
    requester.debugTrace(from, 41);
    ASSERT_EQ(trace.entries().size(), 2U);
    EXPECT_EQ(trace.entries()[0].text,
              "REQ-DATA:ABABABAB ABABABAB ABABABAB ABABABAB ABABABAB ABABABAB ABABABAB ABABABAB "
              "ABABABAB ABABABAB ");
    EXPECT_EQ(trace.entries()[1].text, "REQ-DATA:AB");
    EXPECT_EQ(trace.entries()[1].level, 200);
}

std::string modeWith(int byte) {
    std::string record(34, '\0');
    if (byte >= 0) {
        record[static_cast<std::size_t>(byte)] = 1;
    }
    return message(0x020100b4, telegram("", 0)) + message(0x020100b4, record);
}

std::string powerWith(long value) {
    ORVUi::GeneralPurposePacket packet;
    packet.addComponent(std::make_unique<ORVUi::PrimitiveTypeWrapper<long>>(value));
    std::string payload(packet.getSerializedSize(), '\0');
    packet.getSerialized(reinterpret_cast<unsigned char*>(payload.data()),
                         packet.getSerializedSize());
    return message(0x020100d1, telegram("", 0)) + message(0x020100d1, payload);
}

TEST(PreCheck, AsksAboutMaintenanceForTechnicalStaffOnly) {
    constexpr unsigned int STAFF = 0x40000000;
    const std::string refused = errorResponse({1, 2, 3, 4, 5, 6, 0, 0, 0, 0, 0, 0, 0, 0});
    const std::string noComponent =
        message(0x020100d1, telegram("", 0)) + message(0x020100d1, word(0));
    struct Case {
        int function;
        unsigned int roles;
        std::vector<std::string> responses;
        int verdict;
    };
    for (const Case& c :
         {Case{10, 0x80000000, {}, 2}, Case{11, STAFF, {}, 2}, Case{10, STAFF, {refused}, 2},
          Case{30, STAFF, {modeWith(-1)}, 2}, Case{47, STAFF, {modeWith(16)}, 2},
          Case{10, STAFF, {modeWith(17), refused}, 0},
          Case{30, STAFF, {modeWith(32), powerWith(1)}, 1},
          Case{47, STAFF, {modeWith(33), powerWith(-1)}, 1},
          Case{47, 0xc0000000, {modeWith(33), powerWith(0)}, 0},
          Case{10, STAFF, {modeWith(33), noComponent}, 0}}) {
        const CapturedTrace trace;
        ScriptedDaemon daemon;
        CGIRequester requester("A");
        CGIAuthority authority;
        authority.setAuthority({c.roles, 0});
        const auto requests = daemon.serve(c.responses, [&] {
            EXPECT_EQ(JudgeAuthority(&authority, c.function).preCheckDisplayMode(requester),
                      c.verdict)
                << c.function;
        });
        EXPECT_EQ(requests.size(), c.responses.size());
    }
}

TEST(Url, TakesItsSchemeFromTheHttpsPort) {
    const std::string head = message(0x02010073, telegram("", 0));
    struct Case {
        const char* port;
        std::string response;
        const char* url;
    };
    for (const Case& c :
         {Case{"443", head + message(0, word(443)), "https://board:443"},
          Case{"80", head + message(0, word(443)), "http://board:80"},
          Case{"4294967739", head + message(0, word(443)), "http://board:4294967739"},
          Case{"443", head + message(0, word(443) + "x"), "http://board:443"},
          Case{"443", message(0x02010073, ""), "http://board:443"},
          Case{"-1", message(0x02010073, ""), "https://board:-1"}}) {
        const CapturedTrace trace;
        CgiRequest request;
        request.get("");
        setenv("SERVER_PORT", c.port, 1);
        FormInfo form;
        ScriptedDaemon daemon;
        CGIRequester requester;
        daemon.serve({c.response}, [&] { EXPECT_EQ(form.getURLInfo(requester), c.url); });
        EXPECT_EQ(trace.has(0, 0x802, "FormInfo::getURLInfo()"), requester.getErrorDetail() != 0);
    }
}

}  // namespace
