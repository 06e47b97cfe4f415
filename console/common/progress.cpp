// How far the installation of a firmware is.

#include <algorithm>
#include <iostream>

#include "gui/MetaTag.h"
#include "gui/ORVGUIUtil.h"
#include "shared/access/Rights.h"
#include "shared/backend/Board.h"
#include "shared/backend/Digits.h"
#include "shared/component/Components.h"
#include "shared/component/SkeletonPart.h"
#include "shared/component/Words.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"

using namespace ORVLib::Gui;

namespace {

constexpr char RELOAD_SECONDS[] = "2";
constexpr char RUNNING[] = "running";

/// A bar that is filled as far as something is done, and the same in digits.
class ProgressBar : public HTMLComponent {
public:
    /// REQUIRES: `percent` is not negative. More than all of it counts as all.
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

const Console::Words& states() {
    static const Console::Words STATES = {
        {RUNNING, Console::TEXT_UPDATE_RUNNING, TextString::MAINTENANCE_COLOUR},
        {"done", Console::TEXT_UPDATE_DONE, TextString::NORMAL_COLOUR},
        {"failed", Console::TEXT_UPDATE_FAILED, TextString::ERROR_COLOUR},
        {"idle", Console::TEXT_UPDATE_IDLE},
    };
    return STATES;
}

class ProgressMain : public Console::ConsoleMain {
public:
    explicit ProgressMain(FormInfo& form) : ConsoleMain(form, Console::FUNCTION_PROGRESS) {}

protected:
    bool isSelfRefreshing() const override { return true; }

    std::unique_ptr<HTMLComponent> makeBody(const Console::PageContext& context) override {
        const Console::Record progress =
            Console::readRecord(context.requester, Console::ITEM_PROGRESS);
        Console::RecordReader reader(progress);
        const std::string state = reader.next();
        const int percent = readPercent(reader.next());
        if (state == RUNNING) {
            // Takes the place of the interval that the user chose for pages of status.
            HTMLMapUtil::insertIntoMap(m_page->getMap(), "meta_refresh",
                                       std::make_unique<MetaTag>("Refresh", RELOAD_SECONDS));
        }
        auto body = std::make_unique<Console::SkeletonPart>("skeleton_list.txt");
        body->putText("title", text(Console::TEXT_PROGRESS));
        body->putSentence("purpose", text(Console::TEXT_PROGRESS_PURPOSE));
        body->put("content", makeContent(context, state, percent, reader.next()));
        return body;
    }

private:
    std::string text(Console::Text number) { return m_messages->getString(number); }

    static int readPercent(const std::string& text) {
        constexpr std::size_t MOST_DIGITS = 3;
        const int percent = Console::readDigits(text, MOST_DIGITS);
        if (percent < 0) {
            Console::failDamaged();
        }
        return percent;
    }

    Console::Component makeContent(const Console::PageContext& context, const std::string& state,
                                   int percent, const std::string& version) {
        auto content = std::make_unique<Console::Sequence>();
        auto facts = std::make_unique<Console::Facts>();
        facts->add(text(Console::TEXT_STATE), Console::makeWord(*m_messages, states(), state));
        if (!version.empty()) {
            facts->add(text(Console::TEXT_VERSION), version);
            facts->add(text(Console::TEXT_PROGRESS), std::make_unique<ProgressBar>(percent));
        }
        content->add(std::move(facts));
        if (state != RUNNING &&
            Console::mayUse(context.requester, context.authority, Console::FUNCTION_FIRMWARE)) {
            content->add(Console::makeLink(ORVGUIUtil::getCGIPath(Console::FUNCTION_FIRMWARE),
                                           text(Console::TEXT_FIRMWARE)));
        }
        return content;
    }
};

}  // namespace

int main() {
    return Console::runProgram<ProgressMain>();
}
