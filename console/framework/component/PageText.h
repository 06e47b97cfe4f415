#pragma once

#include <string>

#include "catalogue/Texts.h"
#include "gui/MessageMgr.h"

namespace Console {

/// Sets the catalogue that text() reads: a page has one language. REQUIRES: `messages` outlives
/// all calls of text().
void setPageTexts(ORVLib::Gui::MessageMgr& messages);

/// A text of the catalogue in the language of the page. REQUIRES: setPageTexts() was called.
std::string text(Text number);

}  // namespace Console
