// The sessions of all users.

#include "framework/backend/Board.h"
#include "framework/backend/UtcTime.h"
#include "framework/component/Vocabulary.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "pages/user/Users.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

class SessionsMain : public ConsoleMain {
public:
    explicit SessionsMain(FormInfo& form) : ConsoleMain(form, functionOf(TEXT_SESSIONS)) {}

protected:
    Component makeBody(const PageContext& context) override {
        return makeListPart(getFunction(), TEXT_SESSIONS_PURPOSE, makeTable(context.requester));
    }

private:
    static Component makeTable(CGIRequester& requester) {
        auto table = std::make_unique<Table>(
            std::initializer_list<Text>{TEXT_USER_NAME, TEXT_ROLE, TEXT_CLIENT_ADDRESS,
                                        TEXT_LOGIN_TIME, TEXT_LAST_USE},
            TEXT_NO_SESSIONS);
        const Record record = readRecord(requester, ITEM_SESSIONS);
        for (const auto& row : rowsOf(record, SESSION_FIELDS)) {
            table->addRow(makeText(row[0]), makeSentence(translate(roles(), row[1])),
                          makeText(row[2]), makeSentence(utcTime(row[3])),
                          makeSentence(utcTime(row[4])));
        }
        return table;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SessionsMain>();
}
