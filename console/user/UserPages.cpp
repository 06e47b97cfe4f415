#include "user/UserPages.h"

#include "gui/ORVGUIUtil.h"
#include "shared/backend/Board.h"
#include "shared/component/Words.h"
#include "shared/input/Form.h"
#include "user/PasswordRule.h"

using namespace ORVLib::Gui;

namespace Users {

namespace {

constexpr int USER_ADDED = 360;
constexpr int USER_CHANGED = 361;
constexpr int USER_REMOVED = 362;

constexpr int LONGEST_NAME = 32;
constexpr char LETTERS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr char FURTHER_CHARACTERS[] = "0123456789.-_";

constexpr char LEAST_ROLE[] = "guest";
constexpr char JAPANESE[] = "0";
constexpr char ENGLISH[] = "1";

/// What a user may be called. REQUIRES: `name` is not empty.
bool isGoodName(const std::string& name) {
    const std::string letters = LETTERS;
    return letters.find(name.front()) != std::string::npos &&
           name.find_first_not_of(letters + FURTHER_CHARACTERS) == std::string::npos;
}

std::unique_ptr<Console::TextInput> makeNameInput() {
    return std::make_unique<Console::TextInput>(std::make_unique<TextField>(
        NAME_FIELD, "", Console::FORM_NAME, TextField::DEFAULT_SIZE, LONGEST_NAME));
}

std::unique_ptr<Console::MenuInput> makeRoleInput(MessageMgr& messages) {
    auto input = std::make_unique<Console::MenuInput>("role");
    input->addOptions(messages, Console::roles());
    return input;
}

std::unique_ptr<Console::MenuInput> makeLanguageInput(MessageMgr& messages) {
    auto input = std::make_unique<Console::MenuInput>("language");
    input->addOption(ENGLISH, messages.getString(Console::TEXT_ENGLISH));
    input->addOption(JAPANESE, messages.getString(Console::TEXT_JAPANESE));
    return input;
}

Console::Text reasonFor(unsigned int error) {
    switch (error) {
        case Console::ERROR_EXISTS:
            return Console::TEXT_USER_EXISTS;
        case Console::ERROR_FULL:
            return Console::TEXT_TOO_MANY_USERS;
        case Console::ERROR_NOT_FOUND:
            return Console::TEXT_NO_SUCH_USER;
        case Console::ERROR_BUSY:
            return Console::TEXT_BOARD_BUSY;
        case Console::ERROR_LAST_ADMINISTRATOR:
            return Console::TEXT_LAST_ADMINISTRATOR;
        default:
            return Console::TEXT_REFUSED_BY_BOARD;
    }
}

}  // namespace

UserPage::UserPage(const Console::PageContext& context, Console::Function function,
                   Console::Text purpose, const std::string& action)
    : SettingsPage(context, function, purpose) {
    carry(ACTION_FIELD, action);
    setReturnPath(ORVGUIUtil::getCGIPath(function));
}

void UserPage::send(unsigned int item, const Console::Record& record) {
    const unsigned int error = Console::writeRecord(
        getRequester(), item, record,
        {Console::ERROR_EXISTS, Console::ERROR_FULL, Console::ERROR_NOT_FOUND,
         Console::ERROR_LAST_ADMINISTRATOR, Console::ERROR_BUSY, Console::ERROR_BAD_REQUEST});
    if (error != 0) {
        refuse(reasonFor(error));
    }
}

UserSettingsPage::UserSettingsPage(const Console::PageContext& context, Console::Function function,
                                   Console::Text purpose, const std::string& action,
                                   std::unique_ptr<Console::Input> name,
                                   Console::Text passwordLabel)
    : UserPage(context, function, purpose, action),
      m_name(add(Console::TEXT_USER_NAME, Console::TEXT_WRONG_USER_NAME, std::move(name))),
      m_password(addPassword(passwordLabel, Console::TEXT_BAD_PASSWORD, "password")),
      m_repeated(
          addPassword(Console::TEXT_PASSWORD_AGAIN, Console::TEXT_PASSWORDS_DIFFER, "repeated")),
      m_role(add(Console::TEXT_ROLE, Console::TEXT_WRONG_CHOICE, makeRoleInput(context.messages))),
      m_partitions(add(Console::TEXT_USER_PARTITIONS, Console::TEXT_WRONG_USER_PARTITIONS,
                       std::make_unique<PartitionsInput>("partition", context.requester))),
      m_language(add(Console::TEXT_LANGUAGE, Console::TEXT_WRONG_CHOICE,
                     makeLanguageInput(context.messages))) {}

Console::PasswordInput& UserSettingsPage::addPassword(Console::Text label, Console::Text hint,
                                                      const char* name) {
    return add(label, hint,
               std::make_unique<Console::PasswordInput>(name, Console::LONGEST_PASSWORD));
}

void UserSettingsPage::checkInputs() {
    if (m_password.getText() != m_repeated.getText()) {
        mark(m_repeated);
    }
    if (m_partitions.isEmpty() == (m_role.getText() == Console::ROLE_PARTITION)) {
        mark(m_partitions);
    }
}

void UserSettingsPage::setSettings(const User& user) {
    m_role.setText(user.role);
    m_partitions.setText(user.partitions);
    m_language.setText(user.language);
}

void UserSettingsPage::sendInputs(unsigned int item) {
    Console::Record record;
    for (const Console::Input* const input : std::initializer_list<const Console::Input*>{
             &m_name, &m_password, &m_role, &m_partitions, &m_language}) {
        input->write(record);
    }
    send(item, record);
}

AddUserPage::AddUserPage(const Console::PageContext& context)
    : UserSettingsPage(context, Console::FUNCTION_ADD_USER, Console::TEXT_ADD_USER_PURPOSE,
                       ACTION_ADD, makeNameInput(), Console::TEXT_PASSWORD) {
    setCompletion(USER_ADDED);
    setApplyLabel(Console::TEXT_ADD);
}

void AddUserPage::readCurrent() {
    setSettings({"", LEAST_ROLE, "", getContext().language == 0 ? JAPANESE : ENGLISH});
}

void AddUserPage::checkInputs() {
    UserSettingsPage::checkInputs();
    if (!m_name.isEmpty() && !isGoodName(m_name.getText())) {
        mark(m_name);
    }
    if (!Console::isGoodPassword(m_password.getText())) {
        mark(m_password);
    }
}

void AddUserPage::apply() {
    sendInputs(Console::ITEM_USER_ADD);
}

EditUserPage::EditUserPage(const Console::PageContext& context, const User& user)
    : UserSettingsPage(context, Console::FUNCTION_EDIT_USER, Console::TEXT_EDIT_USER_PURPOSE,
                       ACTION_EDIT, std::make_unique<Console::ShownInput>(user.name),
                       Console::TEXT_NEW_PASSWORD),
      m_user(user) {
    carry(NAME_FIELD, user.name);
    setCompletion(USER_CHANGED);
}

void EditUserPage::checkInputs() {
    UserSettingsPage::checkInputs();
    if (!m_password.isEmpty() && !Console::isGoodPassword(m_password.getText())) {
        mark(m_password);
    }
}

void EditUserPage::apply() {
    sendInputs(Console::ITEM_USER_EDIT);
}

RemoveUserPage::RemoveUserPage(const Console::PageContext& context, const User& user)
    : UserPage(context, Console::FUNCTION_EDIT_USER, Console::TEXT_REMOVE_USER_PURPOSE,
               ACTION_REMOVE),
      m_name(user.name) {
    addShown(Console::TEXT_USER_NAME, user.name);
    addShown(Console::TEXT_ROLE, say(context.messages, Console::roles(), user.role));
    addShown(Console::TEXT_USER_PARTITIONS, listPartitions(user.partitions));
    carry(NAME_FIELD, user.name);
    setTitle(Console::TEXT_REMOVE_USER);
    setApplyLabel(Console::TEXT_REMOVE);
    setCompletion(USER_REMOVED);
}

void RemoveUserPage::apply() {
    Console::Record record;
    record.add(m_name);
    send(Console::ITEM_USER_REMOVE, record);
}

}  // namespace Users
