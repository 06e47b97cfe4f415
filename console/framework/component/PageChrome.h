#pragma once

#include <memory>
#include <string>

#include "gui/HTMLPage.h"

/// The parts that all pages of the console have: title, style sheet, cookies.
namespace Console {

/// Puts a text under a marker; printing escapes it.
void putText(ORVLib::Gui::ComponentMap& map, const std::string& marker, const std::string& text);

/// As putText(), with blanks at which lines can wrap.
void putSentence(ORVLib::Gui::ComponentMap& map, const std::string& marker,
                 const std::string& text);

/// Gives a page its title, the language of its texts, and the console's style sheet.
void setTitleAndStyle(ORVLib::Gui::HTMLPage& page, const std::string& title);

/// True for a request over HTTPS.
bool isEncrypted();

/// The session cookie, for all paths of the console. Scripts cannot read it, and other sites'
/// requests do not carry it. A cookie that was set over HTTPS is not sent over HTTP. REQUIRES:
/// `sessionId` comes from the board.
std::unique_ptr<ORVLib::Gui::HTMLComponent> makeSessionCookie(const std::string& sessionId);
void putSessionCookie(ORVLib::Gui::HTMLPage& page, const std::string& sessionId);

/// Makes the browser delete its session cookie.
void putExpiredCookie(ORVLib::Gui::HTMLPage& page);

/// The path of one of the console's own skeletons.
std::string skeletonPath(const std::string& name);

}  // namespace Console
