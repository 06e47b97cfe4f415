// How far the installation of a firmware is.

#include <algorithm>
#include <iostream>

#include "framework/access/Rights.h"
#include "framework/backend/Board.h"
#include "framework/backend/Digits.h"
#include "framework/component/Components.h"
#include "framework/component/Vocabulary.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "gui/MetaTag.h"
#include "gui/ORVGUIUtil.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr Function FIRMWARE = functionOf(TEXT_FIRMWARE);
constexpr char RELOAD_SECONDS[] = "2";
constexpr char RUNNING[] = "running";

/// A progress bar, with its value in digits.
class ProgressBar : public HTMLComponent {
public:
    /// REQUIRES: `percent` is not negative. A value above 100 counts as 100.
    explicit ProgressBar(int percent) : m_percent(std::min(percent, WHOLE)) {}

    void printHTML() const override {
        const std::string percent = std::to_string(m_percent);
        std::cout << "<progress max=\"" << std::to_string(WHOLE) << "\" value=\"" << percent
                  << "\"></progress> " << percent << " %";
    }

    bool isError() const override { return false; }

private:
    static constexpr int WHOLE = 100;

    int m_percent;
};

const Vocabulary& states() {
    static const Vocabulary STATES = {
        {RUNNING, TEXT_UPDATE_RUNNING, TextString::MAINTENANCE_COLOUR},
        {"done", TEXT_UPDATE_DONE, TextString::NORMAL_COLOUR},
        {"failed", TEXT_UPDATE_FAILED, TextString::ERROR_COLOUR},
        {"idle", TEXT_UPDATE_IDLE},
    };
    return STATES;
}

class ProgressMain : public ConsoleMain {
public:
    explicit ProgressMain(FormInfo& form) : ConsoleMain(form, functionOf(TEXT_PROGRESS)) {}

protected:
    bool isSelfRefreshing() const override { return true; }

    Component makeBody(const PageContext& context) override {
        const Record progress = readRecord(context.requester, ITEM_PROGRESS);
        RecordReader reader(progress);
        const std::string state = reader.next();
        const int percent = readPercent(reader.next());
        if (state == RUNNING) {
            // Replaces the user's interval for pages that reload themselves.
            HTMLMapUtil::insertIntoMap(m_page->getMap(), "meta_refresh",
                                       std::make_unique<MetaTag>("Refresh", RELOAD_SECONDS));
        }
        return makeListPart(getFunction(), TEXT_PROGRESS_PURPOSE,
                            makeContent(context, state, percent, reader.next()));
    }

private:
    static int readPercent(const std::string& text) {
        constexpr std::size_t MOST_DIGITS = 3;
        const int percent = readDigits(text, MOST_DIGITS);
        if (percent < 0) {
            failDamaged();
        }
        return percent;
    }

    Component makeContent(const PageContext& context, const std::string& state, int percent,
                          const std::string& version) {
        auto content = std::make_unique<ComponentGroup>();
        auto facts = std::make_unique<LabelledList>();
        facts->add(text(TEXT_STATE), makeWord(states(), state));
        if (!version.empty()) {
            facts->add(text(TEXT_VERSION), version);
            facts->add(text(TEXT_PROGRESS), std::make_unique<ProgressBar>(percent));
        }
        content->add(std::move(facts));
        if (state != RUNNING && mayUse(context.requester, context.authority, FIRMWARE)) {
            content->add(makeLink(ORVGUIUtil::getCGIPath(FIRMWARE), text(TEXT_FIRMWARE)));
        }
        return content;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::ProgressMain>();
}
