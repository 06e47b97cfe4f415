// Who is logged in.

#include "framework/backend/Board.h"
#include "framework/backend/UtcTime.h"
#include "framework/component/Components.h"
#include "framework/component/SkeletonPart.h"
#include "framework/component/Vocabulary.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr std::size_t SESSION_FIELDS = 5;

class SessionsMain : public ConsoleMain {
public:
    // The table of rights has nobody for this function: everybody may know who else is there.
    explicit SessionsMain(FormInfo& form)
        : ConsoleMain(form, functionOf(TEXT_SESSIONS), Access::ANY_SESSION) {}

protected:
    std::unique_ptr<HTMLComponent> makeBody(const PageContext& context) override {
        auto body = std::make_unique<SkeletonPart>("skeleton_list.txt");
        body->putText("title", text(getTitle()));
        body->putSentence("purpose", text(TEXT_SESSIONS_PURPOSE));
        body->put("content", makeTable(context));
        return body;
    }

private:
    Component makeTable(const PageContext& context) {
        auto table = std::make_unique<Table>(
            std::vector<std::string>{text(TEXT_USER_NAME), text(TEXT_ROLE),
                                     text(TEXT_CLIENT_ADDRESS), text(TEXT_LOGIN_TIME),
                                     text(TEXT_LAST_USE)},
            text(TEXT_NO_SESSIONS));
        const Record record = readRecord(context.requester, ITEM_SESSIONS);
        for (const auto& row : rowsOf(record, SESSION_FIELDS)) {
            std::vector<Component> cells;
            cells.push_back(makeText(row[0]));
            cells.push_back(makeSentence(translate(*m_messages, roles(), row[1])));
            cells.push_back(makeText(row[2]));
            cells.push_back(makeSentence(utcTime(row[3])));
            cells.push_back(makeSentence(utcTime(row[4])));
            table->addRow(std::move(cells));
        }
        return table;
    }

    std::string text(Text number) { return m_messages->getString(number); }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SessionsMain>();
}
