// The users of the console: their list, and the pages that add, edit and remove one.

#include <algorithm>

#include "framework/component/PageChrome.h"
#include "framework/component/Vocabulary.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "gui/ORVGUIUtil.h"
#include "pages/user/UserPages.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr Function LIST = functionOf(TEXT_USERS);
constexpr Function ADD = functionOf(TEXT_ADD_USER);
constexpr Function EDIT = functionOf(TEXT_EDIT_USER);

class UsersMain : public ConsoleMain {
public:
    explicit UsersMain(FormInfo& form) : ConsoleMain(form, LIST) {}

protected:
    Function getFunction() const override {
        const std::string action = getAction();
        if (action == ACTION_ADD) {
            return ADD;
        }
        return action == ACTION_EDIT || action == ACTION_REMOVE ? EDIT : LIST;
    }

    Text getTitle() const override {
        return getAction() == ACTION_REMOVE ? TEXT_REMOVE_USER : ConsoleMain::getTitle();
    }

    Component makeBody(const PageContext& context) override {
        if (getFunction() == ADD) {
            return makePage<AddUserPage>(context);
        }
        const std::vector<User> users = readUsers(context.requester);
        if (getFunction() == LIST) {
            return makeList(users);
        }
        const std::string name = getField(NAME_FIELD);
        const auto user = std::find_if(users.begin(), users.end(),
                                       [&name](const auto& each) { return each.name == name; });
        if (user == users.end() && getAction() == ACTION_REMOVE) {
            auto removed = makePage<RemoveUserPage>(context, User{name, "", "", ""});
            if (removed->isCompleted()) {
                return removed;
            }
        }
        if (user == users.end()) {
            setTitle(TEXT_USERS);
            auto list = makeList(users);
            list->putError(TEXT_NO_SUCH_USER);
            return list;
        }
        if (getAction() == ACTION_REMOVE) {
            return makePage<RemoveUserPage>(context, *user);
        }
        return makePage<EditUserPage>(context, *user, users);
    }

private:
    std::string getAction() const { return getField(ACTION_FIELD); }

    static std::unique_ptr<ListPart> makeList(const std::vector<User>& users) {
        auto list = makeListPart(LIST, TEXT_USERS_PURPOSE, makeTable(users));
        list->put("tabs", makeLink(pathOf(ACTION_ADD, ""), text(TEXT_ADD_USER)));
        return list;
    }

    static Component makeTable(const std::vector<User>& users) {
        auto table = std::make_unique<Table>(
            std::initializer_list<Text>{TEXT_USER_NAME, TEXT_ROLE, TEXT_USER_PARTITIONS,
                                        TEXT_LANGUAGE, TEXT_OPERATION},
            TEXT_NO_USERS);
        for (const User& user : users) {
            table->addRow(makeText(user.name), makeSentence(translate(roles(), user.role)),
                          makeText(listPartitions(user.partitions)),
                          makeText(text(user.language == "0" ? TEXT_JAPANESE : TEXT_ENGLISH)),
                          makeOperations(user));
        }
        return table;
    }

    static Component makeOperations(const User& user) {
        auto links = std::make_unique<ComponentGroup>();
        links->add(makeLink(pathOf(ACTION_EDIT, user.name), text(TEXT_EDIT)));
        links->add(makeLink(pathOf(ACTION_REMOVE, user.name), text(TEXT_REMOVE)));
        return links;
    }

    static std::string pathOf(const std::string& action, const std::string& user) {
        return addressWith(ORVGUIUtil::getCGIPath(LIST),
                           {{ACTION_FIELD, action}, {NAME_FIELD, user}});
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::UsersMain>();
}
