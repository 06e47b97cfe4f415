#pragma once

#include <string>

#include "item/Call.h"

/// What belongs to the user who asks.
namespace ORVLib::Board::OwnSettings {

/// ITEM_OWN_LANGUAGE.
std::string readLanguage(const Call& call);
void writeLanguage(const Call& call);

/// ITEM_OWN_REFRESH_INTERVAL.
std::string readInterval(const Call& call);
void writeInterval(const Call& call);

/// ITEM_OWN_PASSWORD: stores the hash and ends the user's other sessions, for whoever knew the old
/// password is out.
void writePassword(const Call& call);

}  // namespace ORVLib::Board::OwnSettings
