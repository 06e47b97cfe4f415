// The state of every unit of the server.

#include "framework/backend/Board.h"
#include "framework/component/Vocabulary.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "gui/Image.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr std::size_t UNIT_FIELDS = 4;

const Vocabulary& kinds() {
    static const Vocabulary KINDS = {
        {"power", TEXT_UNIT_POWER},          {"partition", TEXT_PARTITION},
        {"power-supply", TEXT_POWER_SUPPLY}, {"fan", TEXT_FAN},
        {"temperature", TEXT_TEMPERATURE},   {"maintenance", TEXT_MAINTENANCE_MODE},
    };
    return KINDS;
}

const Vocabulary& states() {
    static const Vocabulary STATES = {
        {"normal", TEXT_STATE_NORMAL, TextString::NORMAL_COLOUR},
        {"warning", TEXT_STATE_WARNING, TextString::WARNING_COLOUR},
        {"degraded", TEXT_STATE_DEGRADED, TextString::DEGRADE_COLOUR},
        {"error", TEXT_STATE_FAILED, TextString::ERROR_COLOUR},
        {"maintenance", TEXT_IN_MAINTENANCE, TextString::MAINTENANCE_COLOUR},
        {"off", TEXT_OFF},
    };
    return STATES;
}

const Vocabulary& readings() {
    static const Vocabulary READINGS = {
        {"on", TEXT_ON},
        {"off", TEXT_OFF},
    };
    return READINGS;
}

class StatusMain : public ConsoleMain {
public:
    explicit StatusMain(FormInfo& form) : ConsoleMain(form, functionOf(TEXT_STATUS)) {}

protected:
    bool isSelfRefreshing() const override { return true; }

    Component makeBody(const PageContext& context) override {
        return makeListPart(
            getFunction(),
            text(TEXT_STATUS_PURPOSE) + ' ' + text(TEXT_AS_OF) + ' ' + readTime(context.requester),
            makeTable(context.requester));
    }

private:
    static std::string readTime(CGIRequester& requester) {
        const Record clock = readRecord(requester, ITEM_CLOCK);
        RecordReader reader(clock);
        const std::string date = reader.next();
        return date + ' ' + reader.next();
    }

    static Component makeTable(CGIRequester& requester) {
        auto table = std::make_unique<Table>(
            std::initializer_list<Text>{TEXT_UNIT, TEXT_STATE, TEXT_READING}, TEXT_NO_UNITS);
        const Record status = readRecord(requester, ITEM_STATUS);
        for (const auto& row : rowsOf(status, UNIT_FIELDS)) {
            table->addRow(makeUnit(row[0], row[1]), makeWord(states(), row[2]),
                          makeWord(readings(), row[3]));
        }
        return table;
    }

    /// The name of a unit, with its number unless it is the only one of its kind.
    static Component makeUnit(const std::string& kind, const std::string& number) {
        constexpr unsigned int PICTURE_SIZE = 24;
        auto unit = std::make_unique<ComponentGroup>();
        if (kind == "fan") {
            auto picture = std::make_unique<Image>("/images/fan_64x64.gif");
            picture->resizeImageDispSize(PICTURE_SIZE, PICTURE_SIZE);
            unit->add(std::move(picture));
        }
        unit->add(makeWord(kinds(), kind));
        const bool isSingle = number == "0" && kind != "partition";
        unit->add(makeText(isSingle ? "" : number));
        return unit;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::StatusMain>();
}
