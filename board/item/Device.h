#pragma once

#include <string>

#include "item/Call.h"

/// The browsers that users have logged in from.
///
/// A browser keeps an ID that the board made, 32 hexadecimal digits. The board keeps the ID's
/// digest for each user who logged in with it: passwords from there do not wait for those of
/// strangers.
namespace ORVLib::Board::Device {

/// True for a text of an ID's form.
bool isId(const std::string& text);

/// True for a record of an ID or an empty text.
bool isQuestion(const std::string& content);

/// ITEM_OWN_DEVICE: records the browser as the user's, and returns the ID for its cookie: the ID in
/// the query if the board made it, otherwise a new one. A session has one browser.
std::string answer(const Call& call);

}  // namespace ORVLib::Board::Device
