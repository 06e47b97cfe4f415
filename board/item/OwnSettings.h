#pragma once

#include <string>

#include "item/Call.h"

/// The settings of the calling user, and the session.
namespace ORVLib::Board::OwnSettings {

/// ITEM_OWN_LANGUAGE.
std::string readLanguage(const Call& call);
void writeLanguage(const Call& call);

/// ITEM_OWN_REFRESH_INTERVAL.
std::string readInterval(const Call& call);
void writeInterval(const Call& call);

/// ITEM_OWN_PASSWORD: stores the hash and ends the user's other sessions, which may be of somebody
/// who knew the old password.
void writePassword(const Call& call);

/// ITEM_OWN_SESSION: the seconds until the session ends if nobody uses it, at least 1, and the
/// seconds after which an unused session ends.
std::string readSession(const Call& call);

}  // namespace ORVLib::Board::OwnSettings
