#include "gui/HTMLPage.h"

#include <gtest/gtest.h>

#include "gui/TextString.h"
#include "support/Captured.h"
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
    for (std::size_t before = 16384 - 8; before < 16384 + 4; ++before) {
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

}  // namespace
