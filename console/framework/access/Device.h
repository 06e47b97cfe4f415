#pragma once

#include <string>

#include "gui/CGIRequester.h"
#include "gui/HTMLPage.h"

/// The browser that a user logs in from. The board makes an ID for it, and does not let passwords
/// from there wait for those of strangers who guess.
///
/// The ID is a cookie of the log-in page alone: every other page takes a cookie header for the
/// session's, which must begin with it. The form of the page brings a cookie without an ID first,
/// so that a client which keeps no cookies takes up no place among the user's devices.
namespace Console {

/// The ID that the browser sent with the request; empty without one.
std::string readDevice();

/// Whether the browser keeps the cookie, with an ID or without.
bool keepsDevice();

/// Lets the browser show, by its next request, that it keeps the cookie.
void putDeviceCookie(ORVLib::Gui::HTMLPage& page);

/// Asks the board, in the requester's new session, for the ID that the browser is to keep. Empty on
/// failure: the log-in then continues without an ID.
std::string askDevice(ORVLib::Gui::CGIRequester& requester, const std::string& sent);

/// Lets the browser carry a new session, as putSessionCookie() does, and keep its ID for a year.
void putLoginCookies(ORVLib::Gui::HTMLPage& page, const std::string& sessionId,
                     const std::string& device);

}  // namespace Console
