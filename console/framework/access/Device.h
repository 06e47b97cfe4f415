#pragma once

#include <string>

#include "gui/CGIRequester.h"
#include "gui/HTMLPage.h"

/// The browser that a user logs in from. The board makes an ID for it, so that the rate limit for
/// strangers who guess passwords does not delay the user.
///
/// The ID is a cookie of the log-in page only: every other page requires that the cookie header
/// begins with the session's. The page of the form sets a cookie without an ID first, so that a
/// client without cookies is not stored among the user's devices.
namespace Console {

/// The ID that the browser sent with the request; empty without one.
std::string readDevice();

/// Whether the browser keeps the cookie, with an ID or without.
bool keepsDevice();

/// Sets a cookie without an ID: the next request shows whether the browser keeps it.
void putDeviceCookie(ORVLib::Gui::HTMLPage& page);

/// Gets the ID for the browser from the board, in the requester's new session. Empty on failure:
/// the log-in then continues without an ID.
std::string askDevice(ORVLib::Gui::CGIRequester& requester, const std::string& sent);

/// Sets the session cookie, as putSessionCookie() does, and the ID for a year.
void putLoginCookies(ORVLib::Gui::HTMLPage& page, const std::string& sessionId,
                     const std::string& device);

}  // namespace Console
