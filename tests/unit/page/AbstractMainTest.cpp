#include "gui/AbstractMain.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <tuple>

#include "gui/FormInfo.h"
#include "gui/SelectMenu.h"
#include "orv/PException.h"
#include "support/Captured.h"
#include "support/CgiRequest.h"
#include "support/Child.h"
#include "support/Files.h"
#include "support/ScriptedDaemon.h"

using namespace ORVLib;
using namespace ORVLib::Gui;

namespace {

const std::string SKELETONS = TEST_SITE "/usr/local/www/skel/";

class TestMain : public AbstractMain {
public:
    explicit TestMain(FormInfo& form, std::function<int(TestMain&)> work = nullptr)
        : AbstractMain(&form, 99), m_work(std::move(work)) {}

    using AbstractMain::errorExit;
    using AbstractMain::getCookie;
    using AbstractMain::guiCheckLogin;
    using AbstractMain::guiCheckSession;
    using AbstractMain::m_authority;
    using AbstractMain::m_hasSessionId;
    using AbstractMain::m_language;
    using AbstractMain::m_refreshInterval;
    using AbstractMain::m_sessionId;
    using AbstractMain::setAutoRefresh;

protected:
    int execMain() override { return m_work(*this); }

private:
    std::function<int(TestMain&)> m_work;
};

/// A program whose own errorExit() returns, or throws.
class ReturningMain : public TestMain {
public:
    using TestMain::TestMain;
    void errorExit(std::string title, int code) override {
        m_calls += title + std::to_string(code) + ";";
        if (code == 1027) {
            throw 1;
        }
    }
    std::string m_calls;
};

class Main : public testing::Test {
public:
    ~Main() override { unsetenv("HTTP_COOKIE"); }

protected:
    Main() {
        std::filesystem::create_directories(SKELETONS);
        writeFile(SKELETONS + "skeleton_err.txt", "E|$title$|$message$|$css$|$meta_frameid$");
        unsetenv("HTTP_COOKIE");
        request.get("");
    }
    static ChildResult run(std::function<int(TestMain&)> work) {
        return inChild([&work] {
            FormInfo form;
            return TestMain(form, std::move(work)).exec();
        });
    }

    static std::string errorPage(int messageId, int code) {
        std::string text = MessageMgr(1).getMessage(messageId, code);
        MessageMgr::convertHTML(text);
        return "E|Error|" + text +
               "|/default.css|<meta name=\"FRAME-ID\" content=\"M-ERROR-0-00\">";
    }

    static bool has(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    CgiRequest request;
};

PException exception(int detail, int actionCode) {
    return {1, 2, 3, actionCode, detail, 0, 0, 0, 0, 0, 0, 0, 0, 0};
}

TEST_F(Main, ReturnsWhatThePageReturns) {
    const ChildResult child = run([](TestMain&) {
        std::cout << "page";
        return 7;
    });
    EXPECT_EQ(child.status, 7);
    EXPECT_EQ(child.output, "page");
    EXPECT_TRUE(has(child.trace, "level=200 1/2/99 CGI program started\n"));
}

off_t sent() {
    return lseek(STDOUT_FILENO, 0, SEEK_CUR);
}

TEST_F(Main, SendsAPageInOrderAndAtOnce) {
    struct Probe : HTMLComponent {
        void printHTML() const override { std::printf("%d", static_cast<int>(sent())); }
        bool isError() const override { return false; }
    };
    const std::string skeleton = testing::TempDir() + "skeleton.txt";
    writeFile(skeleton, "<$menu$$probe$>");
    const ChildResult child = run([&skeleton](TestMain&) {
        std::setvbuf(stdout, nullptr, _IOFBF, BUFSIZ);
        auto menu = std::make_unique<SelectMenu>("n");
        menu->add("a", "A");
        std::cout << "1";
        menu->printHTML();  // by itself, with its lines flushed
        const int direct = static_cast<int>(sent());
        HTMLPage page(1);
        HTMLMapUtil::insertIntoMap(page.getMap(), "menu", std::move(menu));
        HTMLMapUtil::insertIntoMap(page.getMap(), "probe", new Probe);
        page.getGenerator().setSkeletonFileName(skeleton);
        page.getGenerator().printHTML();
        return sent() > direct ? 0 : 1;  // sent by the generator, not only at the page's end
    });
    EXPECT_EQ(child.status, 0);
    const std::string lines = "<select name=\"n\">\n<option value=\"a\" selected>A\n";
    const std::string menu = lines + "</select>";
    EXPECT_EQ(child.output, "1" + menu + "<" + menu + std::to_string(1 + lines.size()) + ">");
}

TEST_F(Main, TurnsEveryExceptionIntoAnErrorPage) {
    using Case = std::tuple<std::function<int(TestMain&)>, std::string, const char*>;
    for (const auto& [work, page, trace] :
         {Case{[](TestMain&) -> int { throw exception(1792, 5); }, errorPage(79, 0xd05),
               "level=0 1/2/99 main: ended by an exception"},
          Case{[](TestMain&) -> int { throw exception(1026, 5); }, errorPage(13, 1026),
               "main: ended by an exception"},
          Case{[](TestMain&) -> int { throw std::runtime_error("why"); }, errorPage(24, 1027),
               "level=0 1/2/99 Aborted:why\n"},
          Case{[](TestMain&) -> int { throw 5; }, errorPage(24, 1027),
               "level=0 1/2/99 Aborted: Unknown exception\n"}}) {
        const ChildResult child = run(work);
        EXPECT_EQ(child.status, 255);
        EXPECT_EQ(child.output, page);
        EXPECT_TRUE(has(child.trace, trace)) << child.trace;
    }
}

TEST_F(Main, AnErrorExitThatReturnsLeadsToMinusOne) {
    FormInfo form;
    ReturningMain stopped(form, [](TestMain&) -> int { throw exception(1792, 5); });
    EXPECT_EQ(stopped.exec(), -1);
    EXPECT_EQ(stopped.m_calls, "Error3333;Error0;");
    ReturningMain thrower(form, [](TestMain&) -> int { throw std::bad_alloc(); });
    EXPECT_EQ(thrower.exec(), -1);
    EXPECT_EQ(thrower.m_calls, "Error1027;");
}

TEST_F(Main, EndsWhenALargeBodyIsCutShort) {
    request.post("multipart/form-data; boundary=B", "cut short", "3000000");
    const ChildResult child = run([](TestMain&) { return 3; });
    EXPECT_EQ(child.status, 255);
    EXPECT_EQ(child.output, errorPage(20, 1043));
}

TEST_F(Main, ChoosesTheMessageForACode) {
    struct Case {
        int code;
        int messageId;
    };
    for (const Case& c :
         {Case{1024, 20}, Case{1025, 13}, Case{1026, 13}, Case{1027, 24}, Case{1028, 11},
          Case{1029, 14}, Case{1030, 20}, Case{1279, 20}, Case{502, 105}, Case{503, 11},
          Case{256, 11}, Case{1792, 79}, Case{1793, 79}, Case{3333, 79}, Case{0, 78}, Case{255, 78},
          Case{1280, 78}, Case{-1, 78}, Case{0x10000 | 1025, 20}}) {
        const ChildResult child = run([&c](TestMain& m) {
            m.errorExit("Error", c.code);
            return 0;
        });
        EXPECT_EQ(child.output, errorPage(c.messageId, c.code)) << c.code;
        EXPECT_EQ(child.status, 255);
    }
}

TEST_F(Main, EscapesNumberedMessagesAndTitlesOnly) {
    const ChildResult child = run([](TestMain& m) {
        m.errorExit("<T>", "<b>ready</b>");
        return 0;
    });
    EXPECT_TRUE(has(child.output, "E|&lt;T&gt;|<b>ready</b>|")) << child.output;
    EXPECT_EQ(child.status, 255);
}

int checkSession(TestMain& main) {
    main.getCookie();
    main.guiCheckSession(true);
    std::cout << "valid " << main.m_language << " " << main.m_refreshInterval << " "
              << main.m_authority.isGuest();
    return 0;
}

TEST_F(Main, AnsweredByTheDaemonGoesOnOrEnds) {
    setenv("HTTP_COOKIE", "sid=ABC", 1);
    struct Case {
        std::string response;
        std::string output;
        int status;
    };
    for (const Case& c :
         {Case{message(0x02010005, telegram("ABC", 3, 0x20000000)) + message(0x02010005, word(30)),
               "valid 3 30 1", 0},
          Case{errorResponse(exception(1029, 0)), errorPage(14, 1029), 255},
          Case{message(0x02010005, ""), errorPage(11, 1028), 255}}) {
        ScriptedDaemon daemon;
        ChildResult child;
        daemon.serve({c.response}, [&child] { child = run(checkSession); });
        EXPECT_EQ(child.output, c.output);
        EXPECT_EQ(child.status, c.status);
    }
}

TEST_F(Main, CheckWithoutACookieLeavesTheErrorCode) {
    FormInfo form;
    TestMain main(form);
    main.getCookie();
    int errorCode = 99;
    bool hasSession = true;
    EXPECT_EQ(main.guiCheckLogin(errorCode, nullptr, false), 0);
    EXPECT_EQ(main.guiCheckLogin(errorCode, &hasSession, false), 0);
    EXPECT_FALSE(hasSession);
    EXPECT_EQ(errorCode, 99);
}

TEST_F(Main, RefreshesAtTheUsersInterval) {
    FormInfo form;
    TestMain main(form);
    HTMLPage page(1);
    main.setAutoRefresh(page);
    EXPECT_EQ(page.getMap().count("meta_refresh"), 0U);
    main.m_refreshInterval = 4294967295U;
    main.setAutoRefresh(page);
    EXPECT_EQ(printed(*page.getMap().at("meta_refresh")),
              "<meta http-equiv=\"Refresh\" content=\"4294967295\">");
}

}  // namespace
