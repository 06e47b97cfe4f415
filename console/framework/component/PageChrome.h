#pragma once

#include <memory>
#include <string>

#include "gui/HTMLPage.h"

/// What all pages of the console share: title, style sheet, cookies.
namespace Console {

/// Puts a text under a marker; printing escapes it.
void putText(ORVLib::Gui::ComponentMap& map, const std::string& marker, const std::string& text);

/// As putText(), for sentences: blanks stay as they are, so that lines can wrap.
void putSentence(ORVLib::Gui::ComponentMap& map, const std::string& marker,
                 const std::string& text);

/// Gives a page its title and the console's style sheet.
void setTitleAndStyle(ORVLib::Gui::HTMLPage& page, const std::string& title);

/// True when the page is asked for over HTTPS.
bool isEncrypted();

/// Lets the browser carry a session for the whole console, out of reach of scripts and of other
/// sites; one that came over HTTPS never goes over HTTP. REQUIRES: `sessionId` comes from the
/// board.
std::unique_ptr<ORVLib::Gui::HTMLComponent> makeSessionCookie(const std::string& sessionId);
void putSessionCookie(ORVLib::Gui::HTMLPage& page, const std::string& sessionId);

/// Lets the browser forget its session.
void putExpiredCookie(ORVLib::Gui::HTMLPage& page);

/// Path of a skeleton of the console's own.
std::string skeletonPath(const std::string& name);

}  // namespace Console
