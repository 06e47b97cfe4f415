#pragma once

#include <string>

namespace Console {

/// The board's detail of an event in the user's language. Names, addresses and versions stay as
/// they are, and so do words of a later board.
std::string translateDetail(int eventCode, const std::string& detail);

}  // namespace Console
