#pragma once

namespace Console {

/// True for a POST that, by its `Sec-Fetch-Site` or `Origin` header, another site made. Without
/// these headers a request counts as our own: the forms of a session have a CSRF token as well.
bool isCrossSitePost();

}  // namespace Console
