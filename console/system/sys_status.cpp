// The state of every unit of the server.

#include <algorithm>

#include "gui/Image.h"
#include "shared/Board.h"
#include "shared/Components.h"
#include "shared/ConsoleMain.h"
#include "shared/Program.h"
#include "shared/SkeletonPart.h"

using namespace ORVLib::Gui;

namespace {

/// A word of the board's, and what the page makes of it.
struct Word {
    const char* word;
    Console::Text text;
    int colour;
};

constexpr Word KINDS[] = {
    {"power", Console::TEXT_UNIT_POWER, TextString::PLAIN},
    {"partition", Console::TEXT_PARTITION, TextString::PLAIN},
    {"power-supply", Console::TEXT_POWER_SUPPLY, TextString::PLAIN},
    {"fan", Console::TEXT_FAN, TextString::PLAIN},
    {"temperature", Console::TEXT_TEMPERATURE, TextString::PLAIN},
    {"maintenance", Console::TEXT_MAINTENANCE_MODE, TextString::PLAIN},
};

constexpr Word STATES[] = {
    {"normal", Console::TEXT_STATE_NORMAL, TextString::NORMAL_COLOUR},
    {"warning", Console::TEXT_STATE_WARNING, TextString::WARNING_COLOUR},
    {"degraded", Console::TEXT_STATE_DEGRADED, TextString::DEGRADE_COLOUR},
    {"error", Console::TEXT_STATE_FAILED, TextString::ERROR_COLOUR},
    {"maintenance", Console::TEXT_IN_MAINTENANCE, TextString::MAINTENANCE_COLOUR},
    {"off", Console::TEXT_OFF, TextString::PLAIN},
};

constexpr Word READINGS[] = {
    {"on", Console::TEXT_ON, TextString::PLAIN},
    {"off", Console::TEXT_OFF, TextString::PLAIN},
};

class StatusMain : public Console::ConsoleMain {
public:
    // The table of rights has nobody for this function. The page changes nothing, and everybody
    // who is logged in may know the state.
    explicit StatusMain(FormInfo& form)
        : ConsoleMain(form, Console::FUNCTION_STATUS, Console::Access::ANY_SESSION) {}

protected:
    bool isSelfRefreshing() const override { return true; }

    std::unique_ptr<HTMLComponent> makeBody(const Console::PageContext& context) override {
        auto body = std::make_unique<Console::SkeletonPart>("skeleton_list.txt");
        body->putText("title", text(Console::TEXT_STATUS));
        body->putSentence("purpose", text(Console::TEXT_STATUS_PURPOSE) + ' ' +
                                         text(Console::TEXT_AS_OF) + ' ' +
                                         readTime(context.requester));
        body->put("content", makeTable(context.requester));
        return body;
    }

private:
    std::string text(Console::Text number) { return m_messages->getString(number); }

    static std::string readTime(CGIRequester& requester) {
        const Console::Record clock = Console::readRecord(requester, Console::ITEM_CLOCK);
        Console::RecordReader reader(clock);
        const std::string date = reader.next();
        return date + ' ' + reader.next();
    }

    Console::Component makeTable(CGIRequester& requester) {
        auto table = std::make_unique<Console::Table>(
            std::vector<std::string>{text(Console::TEXT_UNIT), text(Console::TEXT_STATE),
                                     text(Console::TEXT_READING)},
            text(Console::TEXT_NO_UNITS));
        const Console::Record status = Console::readRecord(requester, Console::ITEM_STATUS);
        for (Console::RecordReader reader(status); !reader.isAtEnd();) {
            std::vector<Console::Component> cells;
            const std::string& kind = reader.next();
            cells.push_back(makeUnit(kind, reader.next()));
            cells.push_back(translate(STATES, reader.next()));
            cells.push_back(translate(READINGS, reader.next()));
            table->addRow(std::move(cells));
        }
        return table;
    }

    /// A unit's name, with its number unless there is but one.
    Console::Component makeUnit(const std::string& kind, const std::string& number) {
        constexpr unsigned int PICTURE_SIZE = 24;
        auto unit = std::make_unique<Console::Sequence>();
        if (kind == "fan") {
            auto picture = std::make_unique<Image>("/images/fan_64x64.gif");
            picture->resizeImageDispSize(PICTURE_SIZE, PICTURE_SIZE);
            unit->add(std::move(picture));
        }
        unit->add(translate(KINDS, kind));
        const bool isSingle = number == "0" && kind != "partition";
        unit->add(Console::makeText(isSingle ? "" : number));
        return unit;
    }

    /// The text for a word. One that is not known stands there as it is: a later board may have
    /// more of them.
    template <std::size_t COUNT>
    Console::Component translate(const Word (&words)[COUNT], const std::string& word) {
        const auto* const end = std::end(words);
        const auto* const found = std::find_if(
            std::begin(words), end, [&word](const Word& known) { return known.word == word; });
        return found != end ? Console::makeText(text(found->text), found->colour)
                            : Console::makeText(word);
    }
};

}  // namespace

int main() {
    return Console::runProgram<StatusMain>();
}
