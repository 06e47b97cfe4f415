// Who is logged in.

#include "shared/backend/Board.h"
#include "shared/backend/UtcTime.h"
#include "shared/component/Components.h"
#include "shared/component/SkeletonPart.h"
#include "shared/component/Words.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"

using namespace ORVLib::Gui;

namespace {

constexpr std::size_t SESSION_FIELDS = 5;

class SessionsMain : public Console::ConsoleMain {
public:
    // The table of rights has nobody for this function: everybody may know who else is there.
    explicit SessionsMain(FormInfo& form)
        : ConsoleMain(form, Console::FUNCTION_SESSIONS, Console::Access::ANY_SESSION) {}

protected:
    std::unique_ptr<HTMLComponent> makeBody(const Console::PageContext& context) override {
        auto body = std::make_unique<Console::SkeletonPart>("skeleton_list.txt");
        body->putText("title", text(getTitle()));
        body->putSentence("purpose", text(Console::TEXT_SESSIONS_PURPOSE));
        body->put("content", makeTable(context));
        return body;
    }

private:
    Console::Component makeTable(const Console::PageContext& context) {
        auto table = std::make_unique<Console::Table>(
            std::vector<std::string>{text(Console::TEXT_USER_NAME), text(Console::TEXT_ROLE),
                                     text(Console::TEXT_CLIENT_ADDRESS),
                                     text(Console::TEXT_LOGIN_TIME), text(Console::TEXT_LAST_USE)},
            text(Console::TEXT_NO_SESSIONS));
        const Console::Record record =
            Console::readRecord(context.requester, Console::ITEM_SESSIONS);
        for (const auto& row : Console::rowsOf(record, SESSION_FIELDS)) {
            std::vector<Console::Component> cells;
            cells.push_back(Console::makeText(row[0]));
            cells.push_back(Console::makeSentence(say(*m_messages, Console::roles(), row[1])));
            cells.push_back(Console::makeText(row[2]));
            cells.push_back(Console::makeSentence(Console::utcTime(row[3])));
            cells.push_back(Console::makeSentence(Console::utcTime(row[4])));
            table->addRow(std::move(cells));
        }
        return table;
    }

    std::string text(Console::Text number) { return m_messages->getString(number); }
};

}  // namespace

int main() {
    return Console::runProgram<SessionsMain>();
}
