#include "pages/user/UserPages.h"

#include "framework/backend/Board.h"
#include "framework/component/Vocabulary.h"
#include "gui/ORVGUIUtil.h"
#include "pages/user/PasswordRule.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr Function ADD = functionOf(TEXT_ADD_USER);
constexpr Function EDIT = functionOf(TEXT_EDIT_USER);

constexpr int USER_ADDED = 360;
constexpr int USER_CHANGED = 361;
constexpr int USER_REMOVED = 362;

constexpr int LONGEST_NAME = 32;
constexpr char LETTERS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr char FURTHER_CHARACTERS[] = "0123456789.-_";

constexpr char LEAST_ROLE[] = "guest";
constexpr char JAPANESE[] = "0";
constexpr char ENGLISH[] = "1";

/// True for a name that a user may have. REQUIRES: `name` is not empty.
bool isGoodName(const std::string& name) {
    const std::string letters = LETTERS;
    return letters.find(name.front()) != std::string::npos &&
           name.find_first_not_of(letters + FURTHER_CHARACTERS) == std::string::npos;
}

std::unique_ptr<TextInput> makeNameInput() {
    return std::make_unique<TextInput>(NAME_FIELD, TextField::DEFAULT_SIZE, LONGEST_NAME);
}

std::unique_ptr<MenuInput> makeRoleInput() {
    auto input = std::make_unique<MenuInput>("role");
    input->addOptions(roles());
    return input;
}

std::unique_ptr<MenuInput> makeLanguageInput() {
    auto input = std::make_unique<MenuInput>("language");
    input->addOption(ENGLISH, text(TEXT_ENGLISH));
    input->addOption(JAPANESE, text(TEXT_JAPANESE));
    return input;
}

Text reasonFor(unsigned int error) {
    switch (error) {
        case ERROR_EXISTS:
            return TEXT_USER_EXISTS;
        case ERROR_FULL:
            return TEXT_TOO_MANY_USERS;
        case ERROR_NOT_FOUND:
            return TEXT_NO_SUCH_USER;
        case ERROR_BUSY:
            return TEXT_BOARD_BUSY;
        case ERROR_LAST_ADMINISTRATOR:
            return TEXT_LAST_ADMINISTRATOR;
        default:
            return TEXT_REFUSED_BY_BOARD;
    }
}

}  // namespace

UserPage::UserPage(const PageContext& context, Function function, Text purpose,
                   const std::string& action)
    : SettingsPage(context, function, purpose) {
    carryInAddress(ACTION_FIELD, action);
    setReturnPath(ORVGUIUtil::getCGIPath(function));
}

void UserPage::send(unsigned int item, const Record& record) {
    const unsigned int error =
        writeRecord(getRequester(), item, record,
                    {ERROR_EXISTS, ERROR_FULL, ERROR_NOT_FOUND, ERROR_LAST_ADMINISTRATOR,
                     ERROR_BUSY, ERROR_BAD_REQUEST});
    if (error != 0) {
        refuse(reasonFor(error));
    }
}

UserSettingsPage::UserSettingsPage(const PageContext& context, Function function, Text purpose,
                                   const std::string& action, std::unique_ptr<Input> name,
                                   Text passwordLabel)
    : UserPage(context, function, purpose, action),
      m_name(add(TEXT_USER_NAME, TEXT_WRONG_USER_NAME, std::move(name))),
      m_password(
          addPassword(passwordLabel, TEXT_BAD_PASSWORD, "password", PasswordInput::Use::SETTING)),
      m_repeated(addPassword(TEXT_PASSWORD_AGAIN, TEXT_REPEAT_PASSWORD, "repeated",
                             PasswordInput::Use::CHECK)),
      m_role(add(TEXT_ROLE, TEXT_WRONG_CHOICE, makeRoleInput())),
      m_partitions(add(TEXT_USER_PARTITIONS, TEXT_WRONG_USER_PARTITIONS,
                       std::make_unique<PartitionsInput>("partition", context.requester))),
      m_language(add(TEXT_LANGUAGE, TEXT_WRONG_CHOICE, makeLanguageInput())) {}

PasswordInput& UserSettingsPage::addPassword(Text label, Text hint, const char* name,
                                             PasswordInput::Use use) {
    return add(label, hint, std::make_unique<PasswordInput>(name, LONGEST_PASSWORD, use));
}

void UserSettingsPage::checkInputs() {
    if (m_password.getText() != m_repeated.getText()) {
        mark(m_repeated);
    }
    if (m_partitions.isEmpty() == (m_role.getText() == ROLE_PARTITION)) {
        mark(m_partitions);
    }
}

void UserSettingsPage::setSettings(const User& user) {
    m_role.setText(user.role);
    m_partitions.setText(user.partitions);
    m_language.setText(user.language);
}

void UserSettingsPage::sendInputs(unsigned int item) {
    Record record;
    for (const Input* const input : std::initializer_list<const Input*>{
             &m_name, &m_password, &m_role, &m_partitions, &m_language}) {
        input->write(record);
    }
    send(item, record);
}

AddUserPage::AddUserPage(const PageContext& context)
    : UserSettingsPage(context, ADD, TEXT_ADD_USER_PURPOSE, ACTION_ADD, makeNameInput(),
                       TEXT_PASSWORD) {
    setCompletion(USER_ADDED);
    setApplyLabel(TEXT_ADD);
}

void AddUserPage::readCurrent() {
    setSettings({"", LEAST_ROLE, "", getContext().language == 0 ? JAPANESE : ENGLISH});
}

void AddUserPage::checkInputs() {
    UserSettingsPage::checkInputs();
    if (!m_name.isEmpty() && !isGoodName(m_name.getText())) {
        mark(m_name);
    }
    if (!isGoodPassword(m_password.getText())) {
        mark(m_password);
    }
}

void AddUserPage::apply() {
    sendInputs(ITEM_USER_ADD);
}

EditUserPage::EditUserPage(const PageContext& context, const User& user,
                           const std::vector<User>& users)
    : UserSettingsPage(context, EDIT, TEXT_EDIT_USER_PURPOSE, ACTION_EDIT,
                       std::make_unique<ShownInput>(user.name), TEXT_NEW_PASSWORD),
      m_user(user),
      m_isOnlyAdministrator(isOnlyAdministrator(user, users)) {
    carryInAddress(NAME_FIELD, user.name);
    setCompletion(USER_CHANGED);
}

void EditUserPage::checkInputs() {
    UserSettingsPage::checkInputs();
    if (m_isOnlyAdministrator && getRole() != ROLE_ADMINISTRATOR) {
        markRole(TEXT_ONLY_ADMINISTRATOR);
    }
    if (!m_password.isEmpty() && !isGoodPassword(m_password.getText())) {
        mark(m_password);
    }
}

bool EditUserPage::isOwn() const {
    return m_user.name == readUserName(getRequester());
}

bool EditUserPage::isOwnRoleLost() const {
    return getRole() != m_user.role && isOwn();
}

std::string EditUserPage::getLockOut() {
    if (isOwnRoleLost()) {
        return text(TEXT_LOSES_ROLE) + ' ' + translate(roles(), m_user.role);
    }
    if (m_password.isEmpty() || !isOwn()) {
        return "";
    }
    const int others = countSessions(getRequester(), m_user.name) - 1;
    return others > 0 ? text(TEXT_LOSES_SESSIONS) + ' ' + std::to_string(others) : "";
}

void EditUserPage::apply() {
    if (isOwnRoleLost()) {
        setDonePath(FRAME_PATH);
    }
    sendInputs(ITEM_USER_EDIT);
}

RemoveUserPage::RemoveUserPage(const PageContext& context, const User& user)
    : UserPage(context, EDIT, TEXT_REMOVE_USER_PURPOSE, ACTION_REMOVE), m_name(user.name) {
    for (const auto& [label, value] : std::initializer_list<std::pair<Text, std::string>>{
             {TEXT_USER_NAME, user.name},
             {TEXT_ROLE, translate(roles(), user.role)},
             {TEXT_USER_PARTITIONS, listPartitions(user.partitions)}}) {
        add(label, TEXT_NO_SUCH_USER, std::make_unique<ShownInput>(value));
    }
    carryInAddress(NAME_FIELD, user.name);
    setTitle(TEXT_REMOVE_USER);
    setHelp(TEXT_HELP_REMOVE_USER);
    setApplyLabel(TEXT_REMOVE);
    setCompletion(USER_REMOVED);
}

/// The board would refuse it.
void RemoveUserPage::readCurrent() {
    if (m_name == readUserName(getRequester())) {
        refuse(TEXT_OWN_USER);
    }
}

void RemoveUserPage::apply() {
    Record record;
    record.push_back(m_name);
    send(ITEM_USER_REMOVE, record);
}

}  // namespace Console
