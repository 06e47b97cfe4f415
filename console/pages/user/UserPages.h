#pragma once

#include "framework/page/SettingsPage.h"
#include "pages/user/Users.h"

/// The pages that change the list of users. They have no confirmation, because a password is never
/// printed in a page.
namespace Console {

/// The fields of a request to the list of users: the action, and the user's name.
constexpr char ACTION_FIELD[] = "action";
constexpr char NAME_FIELD[] = "name";
constexpr char ACTION_ADD[] = "add";
constexpr char ACTION_EDIT[] = "edit";
constexpr char ACTION_REMOVE[] = "remove";

/// The base of these pages: they lead back to the list, and show why the board refused a change.
class UserPage : public SettingsPage {
protected:
    UserPage(const PageContext& context, Function function, Text purpose,
             const std::string& action);

    bool isConfirmed() const override { return false; }

    /// Writes an item. When the board refuses it, the form says why.
    void send(unsigned int item, const Record& record);
};

/// The inputs to add or edit a user.
class UserSettingsPage : public UserPage {
protected:
    /// `name` is the first input.
    UserSettingsPage(const PageContext& context, Function function, Text purpose,
                     const std::string& action, std::unique_ptr<Input> name, Text passwordLabel);

    void checkInputs() override;

    /// Sets the inputs to a user's settings.
    void setSettings(const User& user);

    /// Writes the inputs: name, password, role, partitions and language.
    void sendInputs(unsigned int item);

    std::string getRole() const { return m_role.getText(); }
    void markRole(Text hint) { mark(m_role, hint); }

    Input& m_name;
    PasswordInput& m_password;

private:
    PasswordInput& addPassword(Text label, Text hint, const char* name, PasswordInput::Use use);

    PasswordInput& m_repeated;
    MenuInput& m_role;
    PartitionsInput& m_partitions;
    MenuInput& m_language;
};

class AddUserPage : public UserSettingsPage {
public:
    explicit AddUserPage(const PageContext& context);

protected:
    bool isCompared() const override { return false; }
    void readCurrent() override;
    void checkInputs() override;
    void apply() override;
};

/// An empty password does not change the user's password.
class EditUserPage : public UserSettingsPage {
public:
    EditUserPage(const PageContext& context, const User& user, const std::vector<User>& users);

protected:
    void readCurrent() override { setSettings(m_user); }
    void checkInputs() override;
    std::string getLockOut() override;
    void apply() override;

private:
    bool isOwn() const;
    bool isOwnRoleLost() const;

    User m_user;
    bool m_isOnlyAdministrator;
};

class RemoveUserPage : public UserPage {
public:
    RemoveUserPage(const PageContext& context, const User& user);

    using FormPage::isCompleted;

protected:
    bool isCompared() const override { return false; }
    void readCurrent() override;
    void apply() override;

private:
    std::string m_name;
};

}  // namespace Console
