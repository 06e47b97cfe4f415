#pragma once

#include <string>

#include "gui/HTMLPage.h"

namespace Console {

/// Answers the request with "303 See Other" and the cookies of `page`: the browser gets another
/// page with a GET. `path` is the path of a page of the console, with a query whose values are
/// encoded. REQUIRES: nothing was printed before.
void printRedirect(ORVLib::Gui::HTMLPage& page, const std::string& path);

}  // namespace Console
