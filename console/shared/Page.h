#pragma once

#include <memory>
#include <string>

#include "gui/FormInfo.h"
#include "gui/HTMLComponent.h"

/// What every page of the console repeats.
namespace Console {

/// Reads the request and hands it to `work`. A request that cannot be read, and whatever else
/// `work` lets escape, ends in the error page. Returns the program's exit status.
int servePage(int (*work)(ORVLib::Gui::FormInfo& form));

/// Prints a page with the console's title and style sheet around `body`.
void printPage(int language, const std::string& title,
               std::unique_ptr<ORVLib::Gui::HTMLComponent> body);

}  // namespace Console
