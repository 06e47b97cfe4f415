// The state of every unit of the server.

#include "gui/Image.h"
#include "shared/backend/Board.h"
#include "shared/component/Components.h"
#include "shared/component/SkeletonPart.h"
#include "shared/component/Words.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"

using namespace ORVLib::Gui;

namespace {

constexpr std::size_t UNIT_FIELDS = 4;

const Console::Words& kinds() {
    static const Console::Words KINDS = {
        {"power", Console::TEXT_UNIT_POWER},
        {"partition", Console::TEXT_PARTITION},
        {"power-supply", Console::TEXT_POWER_SUPPLY},
        {"fan", Console::TEXT_FAN},
        {"temperature", Console::TEXT_TEMPERATURE},
        {"maintenance", Console::TEXT_MAINTENANCE_MODE},
    };
    return KINDS;
}

const Console::Words& states() {
    static const Console::Words STATES = {
        {"normal", Console::TEXT_STATE_NORMAL, TextString::NORMAL_COLOUR},
        {"warning", Console::TEXT_STATE_WARNING, TextString::WARNING_COLOUR},
        {"degraded", Console::TEXT_STATE_DEGRADED, TextString::DEGRADE_COLOUR},
        {"error", Console::TEXT_STATE_FAILED, TextString::ERROR_COLOUR},
        {"maintenance", Console::TEXT_IN_MAINTENANCE, TextString::MAINTENANCE_COLOUR},
        {"off", Console::TEXT_OFF},
    };
    return STATES;
}

const Console::Words& readings() {
    static const Console::Words READINGS = {
        {"on", Console::TEXT_ON},
        {"off", Console::TEXT_OFF},
    };
    return READINGS;
}

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
        for (const auto& row : Console::rowsOf(status, UNIT_FIELDS)) {
            std::vector<Console::Component> cells;
            cells.push_back(makeUnit(row[0], row[1]));
            cells.push_back(Console::makeWord(*m_messages, states(), row[2]));
            cells.push_back(Console::makeWord(*m_messages, readings(), row[3]));
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
        unit->add(Console::makeWord(*m_messages, kinds(), kind));
        const bool isSingle = number == "0" && kind != "partition";
        unit->add(Console::makeText(isSingle ? "" : number));
        return unit;
    }
};

}  // namespace

int main() {
    return Console::runProgram<StatusMain>();
}
