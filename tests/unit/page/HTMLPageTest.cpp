#include "gui/HTMLPage.h"

#include <gtest/gtest.h>

#include <tuple>

#include "gui/CommonDefaultPage.h"
#include "gui/FormInfo.h"
#include "gui/TextString.h"
#include "gui/TimeoutPage.h"
#include "support/Captured.h"
#include "support/CgiRequest.h"
#include "support/Files.h"

using namespace ORVLib::Gui;

namespace {

class Marked : public HTMLComponent {
public:
    explicit Marked(int& alive, bool error = false) : m_alive(alive), m_error(error) { ++m_alive; }
    Marked(const Marked&) = delete;
    Marked& operator=(const Marked&) = delete;
    ~Marked() override { --m_alive; }
    void printHTML() const override { std::cout << "[M]"; }
    bool isError() const override { return m_error; }

private:
    int& m_alive;
    bool m_error;
};

std::string pageOf(const std::string& skeleton) {
    const std::string path = testing::TempDir() + "skeleton.txt";
    writeFile(path, skeleton);
    HTMLPage page(1);
    HTMLMapUtil::insertIntoMap(page.getMap(), "body", new TextString("B"));
    HTMLMapUtil::insertIntoMap(page.getMap(), "null", nullptr);
    HTMLMapUtil::insertIntoMap(page.getMap(), bytes("odd\n\0 name"), new TextString("O"));
    page.getGenerator().setSkeletonFileName(path);
    const CapturedOutput output;
    page.getGenerator().printHTML();
    return output.text();
}

TEST(Skeleton, MarkersAreReplaced) {
    for (const TextCase& c :
         {TextCase{"", ""}, TextCase{bytes("no marker\r\n\0\xff"), bytes("no marker\r\n\0\xff")},
          TextCase{"<$body$>$body$", "<B>B"}, TextCase{"$destination$", "iso-8859-1"},
          TextCase{"$$ and $$body$$", "$ and $body$"}, TextCase{"a$unknown$b$null$c", "abc"},
          TextCase{"$BODY$|$ body$", "|"}, TextCase{bytes("$odd\n\0 name$"), "O"},
          TextCase{"open $body", "open B"}, TextCase{"open $unknown", "open "},
          TextCase{"end$", "end$"}, TextCase{"$$$", "$$"}, TextCase{"$", "$"}}) {
        EXPECT_EQ(pageOf(c.text), c.expected) << c.text;
    }
}

// A marker at every place relative to the end of the block that the file is read in.
TEST(Skeleton, MarkersMayCrossBlocks) {
    for (std::size_t before = 4096 - 8; before < 4096 + 4; ++before) {
        const std::string text(before, 'x');
        EXPECT_EQ(pageOf(text + "$body$y$$z$body"), text + "By$zB");
    }
}

TEST(Skeleton, ThatCannotBeReadGivesAMessageAndATraceEntry) {
    for (const std::string& path : {testing::TempDir() + "absent", testing::TempDir()}) {
        HTMLPage page(1);
        page.getGenerator().setSkeletonFileName(path);
        const CapturedOutput output;
        const CapturedTrace trace;
        page.getGenerator().printHTML();
        EXPECT_EQ(output.text().rfind(" (00:0402)"), output.text().size() - 10) << output.text();
        EXPECT_TRUE(trace.has(0, 0x801, "HTMLCodeGenerator::printHTML(): cannot open"));
        EXPECT_TRUE(trace.has(0, 0x801, path));
    }
}

TEST(ComponentMap, DeletesWhatIsReplacedAndWhatIsLeft) {
    int alive = 0;
    {
        HTMLPage page(0);
        ComponentMap& map = page.getMap();
        auto* const first = new Marked(alive);
        EXPECT_TRUE(HTMLMapUtil::insertIntoMap(map, "a", first));
        EXPECT_FALSE(HTMLMapUtil::insertIntoMap(map, "a", first)) << "the same one stays alive";
        EXPECT_EQ(alive, 1);
        EXPECT_FALSE(HTMLMapUtil::insertIntoMap(map, "a", new Marked(alive)));
        EXPECT_EQ(alive, 1);
        EXPECT_TRUE(HTMLMapUtil::insertIntoMap(map, "b", std::make_unique<Marked>(alive)));
        map["null"] = nullptr;
        EXPECT_FALSE(HTMLMapUtil::insertIntoMap(map, "null", new Marked(alive)));
        EXPECT_EQ(alive, 3);
    }
    EXPECT_EQ(alive, 0);
}

TEST(Page, IsInvalidWhenOneComponentIs) {
    int alive = 0;
    HTMLPage page(1);
    page.getMap()["null"] = nullptr;
    EXPECT_FALSE(page.getGenerator().isError());
    HTMLMapUtil::insertIntoMap(page.getMap(), "z", new Marked(alive, true));
    EXPECT_TRUE(page.getGenerator().isError());
    EXPECT_FALSE(HTMLCodeGenerator(nullptr).isError());
}

TEST(Page, NamesTheCharacterSetOfItsLanguage) {
    for (const auto& [language, name] : {std::pair<int, const char*>{0, "EUC-JP"},
                                         {1, "iso-8859-1"},
                                         {2, "iso-8859-1"},
                                         {-1, "iso-8859-1"}}) {
        HTMLPage page(language);
        EXPECT_EQ(printed(*page.getMap().at("destination")), name);
    }
}

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
    using Case = std::tuple<int, bool, int, const char*>;
    constexpr char STATE_3[] = R"(<input type="hidden" name="page_state" value="3">)";
    constexpr char STATE_4[] = R"(<input type="hidden" name="page_state" value="4">)";
    for (const auto& [given, redisplay, next, field] :
         {Case{2, false, 3, STATE_3}, Case{2, true, 3, STATE_3}, Case{3, true, 3, STATE_3},
          Case{3, false, 4, STATE_4}, Case{0, true, 0, "none"}, Case{1, false, -1, "none"},
          Case{4, false, -1, "none"}, Case{-1, true, -1, "none"}}) {
        TestPage fresh(messages, &state);
        EXPECT_EQ(fresh.getNextPageState(given, redisplay), next) << given;
        fresh.addNextPageItem(&given, redisplay);
        EXPECT_EQ(fresh.marker("page_state"), field) << given;
    }
    page.addNextPageItem(nullptr, false);
    EXPECT_EQ(page.marker("page_state"), "none");
}

TEST_F(ConfigurationPage, IsConfiguredByAPostInState2Only) {
    using Case = std::tuple<const char*, int, const char*>;
    for (const auto& [method, given, made] :
         {Case{"POST", 2, "configured"}, Case{"GET", 2, "displayed"}, Case{"", 2, "displayed"},
          Case{"POST", 0, "displayed"}, Case{"POST", 3, "displayed"},
          Case{"POST", 4, "displayed"}}) {
        CgiRequest request;
        setenv("REQUEST_METHOD", method, 1);
        FormInfo form;
        FormInfo::myInstance = &form;
        state = given;
        page.makePage();
        EXPECT_EQ(page.m_made, made) << method << given;
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
