#pragma once

#include <string>

namespace Console {

/// The CSRF token of a session. The session's forms carry it: another site can make a browser send
/// a form, but cannot read ours. 32 hexadecimal digits, from which the session ID cannot be
/// computed.
std::string csrfToken(const std::string& sessionId);

/// True for the session's own token. Compares in constant time, except for the length.
bool isCsrfToken(const std::string& text, const std::string& sessionId);

}  // namespace Console
