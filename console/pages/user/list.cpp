// The users of the console: their list, and the pages that add, edit and remove one.

#include <algorithm>

#include "framework/component/Components.h"
#include "framework/component/PageChrome.h"
#include "framework/component/SkeletonPart.h"
#include "framework/component/Vocabulary.h"
#include "framework/input/Form.h"
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

    std::unique_ptr<HTMLComponent> makeBody(const PageContext& context) override {
        if (getFunction() == ADD) {
            return makePage<AddUserPage>(context);
        }
        const std::vector<User> users = readUsers(context.requester);
        if (getFunction() == LIST) {
            return makeList(users, "");
        }
        const std::string name = fieldOf(context.form, NAME_FIELD);
        const auto user = std::find_if(users.begin(), users.end(),
                                       [&name](const auto& each) { return each.name == name; });
        if (user == users.end()) {
            setTitleAndStyle(*m_page, text(TEXT_USERS));
            return makeList(users, text(TEXT_NO_SUCH_USER));
        }
        if (getAction() == ACTION_REMOVE) {
            return makePage<RemoveUserPage>(context, *user);
        }
        return makePage<EditUserPage>(context, *user);
    }

private:
    std::string getAction() const { return fieldOf(*m_formInfo, ACTION_FIELD); }

    /// `problem` is said above the list.
    Component makeList(const std::vector<User>& users, const std::string& problem) {
        auto body = std::make_unique<SkeletonPart>("skeleton_list.txt");
        body->putText("title", text(TEXT_USERS));
        body->putSentence("purpose", text(TEXT_USERS_PURPOSE));
        body->put("tabs", makeLink(pathOf(ACTION_ADD, ""), text(TEXT_ADD_USER)));
        if (!problem.empty()) {
            body->put("error", makeSentence(problem, TextString::ERROR_COLOUR));
        }
        body->put("content", makeTable(users));
        return body;
    }

    Component makeTable(const std::vector<User>& users) {
        auto table = std::make_unique<Table>(
            std::vector<std::string>{text(TEXT_USER_NAME), text(TEXT_ROLE),
                                     text(TEXT_USER_PARTITIONS), text(TEXT_LANGUAGE),
                                     text(TEXT_OPERATION)},
            text(TEXT_NO_USERS));
        for (const User& user : users) {
            std::vector<Component> cells;
            cells.push_back(makeText(user.name));
            cells.push_back(makeSentence(translate(*m_messages, roles(), user.role)));
            cells.push_back(makeText(listPartitions(user.partitions)));
            cells.push_back(makeText(text(user.language == "0" ? TEXT_JAPANESE : TEXT_ENGLISH)));
            cells.push_back(makeOperations(user));
            table->addRow(std::move(cells));
        }
        return table;
    }

    Component makeOperations(const User& user) {
        auto links = std::make_unique<ComponentGroup>();
        links->add(makeLink(pathOf(ACTION_EDIT, user.name), text(TEXT_EDIT)));
        links->add(makeLink(pathOf(ACTION_REMOVE, user.name), text(TEXT_REMOVE)));
        return links;
    }

    static std::string pathOf(const std::string& action, const std::string& user) {
        return addressWith(ORVGUIUtil::getCGIPath(LIST),
                           {{ACTION_FIELD, action}, {NAME_FIELD, user}});
    }

    std::string text(Text number) { return m_messages->getString(number); }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::UsersMain>();
}
