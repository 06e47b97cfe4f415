#pragma once

#include <string>

#include "item/Call.h"

/// The users and their sessions.
namespace ORVLib::Board::Users {

/// Contents of ITEM_USER_ADD, ITEM_USER_EDIT and ITEM_USER_REMOVE.
bool isNewUser(const std::string& content);
bool isChangedUser(const std::string& content);
bool isUserName(const std::string& content);

/// ITEM_USERS.
std::string list(const Call& call);

/// ITEM_USER_ADD.
void add(const Call& call);

/// ITEM_USER_EDIT: with a new password, the user's other sessions end.
void edit(const Call& call);

/// ITEM_USER_REMOVE: ends the user's sessions.
void remove(const Call& call);

/// ITEM_SESSIONS: the latest log-ins first, as many as a payload holds.
std::string listSessions(const Call& call);

/// The password in the content of ITEM_USER_ADD and ITEM_USER_EDIT.
/// REQUIRES: the content fits the item.
std::string getPassword(const std::string& content);

}  // namespace ORVLib::Board::Users
