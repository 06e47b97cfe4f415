#pragma once

namespace Console {

/// True for a cross-site POST, by its `Sec-Fetch-Site` or `Origin` header. False without these
/// headers: the forms of a session have a CSRF token too.
bool isCrossSitePost();

}  // namespace Console
