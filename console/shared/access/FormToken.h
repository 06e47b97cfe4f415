#pragma once

#include <string>

namespace Console {

/// What the forms of a session carry, to show that they come from a page of that session: another
/// site can make a browser send a form, but cannot read ours. 32 hexadecimal digits, from which
/// nobody can tell the session's ID.
std::string formToken(const std::string& sessionId);

/// True for the session's own token. How long it takes tells nothing of a wrong one but its length.
bool isFormToken(const std::string& text, const std::string& sessionId);

}  // namespace Console
