#include "gui/CommonDefaultPage.h"

#include <gtest/gtest.h>

#include "gui/FormInfo.h"
#include "gui/TimeoutPage.h"
#include "support/Captured.h"
#include "support/CgiRequest.h"

using namespace ORVLib::Gui;

namespace {

class TestPage : public CommonDefaultPage {
public:
    TestPage(MessageMgr& messages, const int* state)
        : CommonDefaultPage(messages, 7, state, testing::TempDir() + "page.txt") {}
    void makeDispPage() override { m_made = "displayed"; }
    void makeConfigPage() override { m_made = "configured"; }
    std::string marker(const std::string& name) {
        const auto entry = getMap().find(name);
        return entry != getMap().end() ? printed(*entry->second) : "none";
    }
    std::string skeleton() { return getGenerator().getSkeletonFileName(); }
    using CommonDefaultPage::setError;

    std::string m_made;
};

class ConfigurationPage : public testing::Test {
protected:
    MessageMgr messages{1};
    int state = 0;
    TestPage page{messages, &state};
};

TEST_F(ConfigurationPage, CarriesItsNextState) {
    struct Case {
        int state;
        bool redisplay;
        int next;
        const char* field;
    };
    constexpr char STATE_3[] = R"(<input type="hidden" name="page_state" value="3">)";
    constexpr char STATE_4[] = R"(<input type="hidden" name="page_state" value="4">)";
    for (const Case& c :
         {Case{2, false, 3, STATE_3}, Case{2, true, 3, STATE_3}, Case{3, true, 3, STATE_3},
          Case{3, false, 4, STATE_4}, Case{0, true, 0, "none"}, Case{1, false, -1, "none"},
          Case{4, false, -1, "none"}, Case{-1, true, -1, "none"}}) {
        TestPage fresh(messages, &state);
        EXPECT_EQ(fresh.getNextPageState(c.state, c.redisplay), c.next) << c.state;
        fresh.addNextPageItem(&c.state, c.redisplay);
        EXPECT_EQ(fresh.marker("page_state"), c.field) << c.state;
    }
    page.addNextPageItem(nullptr, false);
    EXPECT_EQ(page.marker("page_state"), "none");
}

TEST_F(ConfigurationPage, IsConfiguredByAPostInState2Only) {
    struct Case {
        const char* method;
        int state;
        const char* made;
    };
    for (const Case& c : {Case{"POST", 2, "configured"}, Case{"GET", 2, "displayed"},
                          Case{"", 2, "displayed"}, Case{"POST", 0, "displayed"},
                          Case{"POST", 3, "displayed"}, Case{"POST", 4, "displayed"}}) {
        CgiRequest request;
        setenv("REQUEST_METHOD", c.method, 1);
        FormInfo form;
        FormInfo::myInstance = &form;
        state = c.state;
        page.makePage();
        EXPECT_EQ(page.m_made, c.made) << c.method << c.state;
        FormInfo::myInstance = nullptr;
    }
    CgiRequest request;
    TestPage stateless(messages, nullptr);
    stateless.makePage();
    EXPECT_EQ(stateless.m_made, "displayed");
    ASSERT_NE(FormInfo::myInstance, nullptr) << "made on first use";
    delete FormInfo::myInstance;
    FormInfo::myInstance = nullptr;
}

TEST_F(ConfigurationPage, BecomesTheCompletionPage) {
    page.setComplPageItemToMap("A & B", R"("go")", 79);
    EXPECT_EQ(page.skeleton(), TEST_SITE "/usr/local/www/skel/skeleton_config_cmpl.txt");
    EXPECT_EQ(page.marker("title"), "A&nbsp;&amp;&nbsp;B");
    std::string message = messages.getMessage(79, 0);
    MessageMgr::convertHTML(message);
    EXPECT_EQ(page.marker("message"), message);
    EXPECT_EQ(
        page.marker("submit"),
        R"(<input type="button" name="OK" value="failed to read string for CGI" onClick="go">)");
}

TEST_F(ConfigurationPage, AnswersItsError) {
    EXPECT_FALSE(page.isError());
    page.setError(true);
    EXPECT_TRUE(page.isError());
}

}  // namespace
