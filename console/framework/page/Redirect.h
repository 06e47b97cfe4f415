#pragma once

#include <string>

namespace Console {

/// Answers the request with "303 See Other": the browser gets another page with a GET. `path` is
/// the path of a page of the console, with a query whose values are encoded. REQUIRES: nothing was
/// printed before.
void printRedirect(const std::string& path);

}  // namespace Console
