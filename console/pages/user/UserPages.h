#pragma once

#include "framework/page/SettingsPage.h"
#include "pages/user/Users.h"

/// The pages that change the list of users. A password is never printed in a page, so none of
/// them has a confirmation: they are applied at once.
namespace Console {

/// What a request to the list of users wants, and the user it is about.
constexpr char ACTION_FIELD[] = "action";
constexpr char NAME_FIELD[] = "name";
constexpr char ACTION_ADD[] = "add";
constexpr char ACTION_EDIT[] = "edit";
constexpr char ACTION_REMOVE[] = "remove";

/// What these pages have in common: they lead back to the list, and know what the board minds.
class UserPage : public SettingsPage {
protected:
    UserPage(const PageContext& context, Function function, Text purpose,
             const std::string& action);

    bool isConfirmed() const override { return false; }

    /// Writes an item. What the board minds about the users is said above the form.
    void send(unsigned int item, const Record& record);
};

/// What adding and editing a user share: the inputs.
class UserSettingsPage : public UserPage {
protected:
    /// `name` is the first of the inputs.
    UserSettingsPage(const PageContext& context, Function function, Text purpose,
                     const std::string& action, std::unique_ptr<Input> name, Text passwordLabel);

    void checkInputs() override;

    /// Puts a user's settings into the inputs.
    void setSettings(const User& user);

    /// Writes the inputs: name, password, role, partitions and language.
    void sendInputs(unsigned int item);

    Input& m_name;
    PasswordInput& m_password;

private:
    PasswordInput& addPassword(Text label, Text hint, const char* name);

    PasswordInput& m_repeated;
    MenuInput& m_role;
    PartitionsInput& m_partitions;
    MenuInput& m_language;
};

class AddUserPage : public UserSettingsPage {
public:
    explicit AddUserPage(const PageContext& context);

protected:
    void readCurrent() override;
    void checkInputs() override;
    void apply() override;
};

/// An empty password leaves the user's own as it is.
class EditUserPage : public UserSettingsPage {
public:
    EditUserPage(const PageContext& context, const User& user);

protected:
    void readCurrent() override { setSettings(m_user); }
    void checkInputs() override;
    void apply() override;

private:
    User m_user;
};

class RemoveUserPage : public UserPage {
public:
    RemoveUserPage(const PageContext& context, const User& user);

protected:
    void readCurrent() override {}
    void apply() override;

private:
    std::string m_name;
};

}  // namespace Console
