// The users of the console: their list, and the pages that add, edit and remove one.

#include <algorithm>

#include "gui/ORVGUIUtil.h"
#include "shared/component/Components.h"
#include "shared/component/OuterPage.h"
#include "shared/component/SkeletonPart.h"
#include "shared/component/Words.h"
#include "shared/input/Form.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "user/UserPages.h"

using namespace ORVLib::Gui;

namespace {

using Console::fieldOf;

Console::Function functionOf(const std::string& action) {
    if (action == Users::ACTION_ADD) {
        return Console::FUNCTION_ADD_USER;
    }
    return action == Users::ACTION_EDIT || action == Users::ACTION_REMOVE
               ? Console::FUNCTION_EDIT_USER
               : Console::FUNCTION_USERS;
}

class UsersMain : public Console::ConsoleMain {
public:
    explicit UsersMain(FormInfo& form) : ConsoleMain(form, Console::FUNCTION_USERS) {}

protected:
    Console::Function getFunction() const override { return functionOf(getAction()); }

    Console::Text getTitle() const override {
        return getAction() == Users::ACTION_REMOVE ? Console::TEXT_REMOVE_USER
                                                   : ConsoleMain::getTitle();
    }

    std::unique_ptr<HTMLComponent> makeBody(const Console::PageContext& context) override {
        if (getFunction() == Console::FUNCTION_ADD_USER) {
            return Console::makePage<Users::AddUserPage>(context);
        }
        const std::vector<Users::User> users = Users::readUsers(context.requester);
        if (getFunction() == Console::FUNCTION_USERS) {
            return makeList(users, "");
        }
        const std::string name = fieldOf(context.form, Users::NAME_FIELD);
        const auto user = std::find_if(users.begin(), users.end(),
                                       [&name](const auto& each) { return each.name == name; });
        if (user == users.end()) {
            Console::dressPage(*m_page, text(Console::TEXT_USERS));
            return makeList(users, text(Console::TEXT_NO_SUCH_USER));
        }
        if (getAction() == Users::ACTION_REMOVE) {
            return Console::makePage<Users::RemoveUserPage>(context, *user);
        }
        return Console::makePage<Users::EditUserPage>(context, *user);
    }

private:
    std::string getAction() const { return fieldOf(*m_formInfo, Users::ACTION_FIELD); }

    /// `problem` is said above the list.
    Console::Component makeList(const std::vector<Users::User>& users, const std::string& problem) {
        auto body = std::make_unique<Console::SkeletonPart>("skeleton_list.txt");
        body->putText("title", text(Console::TEXT_USERS));
        body->putSentence("purpose", text(Console::TEXT_USERS_PURPOSE));
        body->put("tabs",
                  Console::makeLink(pathOf(Users::ACTION_ADD, ""), text(Console::TEXT_ADD_USER)));
        if (!problem.empty()) {
            body->put("error", Console::makeSentence(problem, TextString::ERROR_COLOUR));
        }
        body->put("content", makeTable(users));
        return body;
    }

    Console::Component makeTable(const std::vector<Users::User>& users) {
        auto table = std::make_unique<Console::Table>(
            std::vector<std::string>{text(Console::TEXT_USER_NAME), text(Console::TEXT_ROLE),
                                     text(Console::TEXT_USER_PARTITIONS),
                                     text(Console::TEXT_LANGUAGE), text(Console::TEXT_OPERATION)},
            text(Console::TEXT_NO_USERS));
        for (const Users::User& user : users) {
            std::vector<Console::Component> cells;
            cells.push_back(Console::makeText(user.name));
            cells.push_back(Console::makeSentence(say(*m_messages, Console::roles(), user.role)));
            cells.push_back(Console::makeText(Users::listPartitions(user.partitions)));
            cells.push_back(Console::makeText(
                text(user.language == "0" ? Console::TEXT_JAPANESE : Console::TEXT_ENGLISH)));
            cells.push_back(makeOperations(user));
            table->addRow(std::move(cells));
        }
        return table;
    }

    Console::Component makeOperations(const Users::User& user) {
        auto links = std::make_unique<Console::Sequence>();
        links->add(
            Console::makeLink(pathOf(Users::ACTION_EDIT, user.name), text(Console::TEXT_EDIT)));
        links->add(
            Console::makeLink(pathOf(Users::ACTION_REMOVE, user.name), text(Console::TEXT_REMOVE)));
        return links;
    }

    static std::string pathOf(const std::string& action, const std::string& user) {
        return Console::addressWith(ORVGUIUtil::getCGIPath(Console::FUNCTION_USERS),
                                    {{Users::ACTION_FIELD, action}, {Users::NAME_FIELD, user}});
    }

    std::string text(Console::Text number) { return m_messages->getString(number); }
};

}  // namespace

int main() {
    return Console::runProgram<UsersMain>();
}
