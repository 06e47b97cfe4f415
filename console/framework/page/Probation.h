#pragma once

#include <string>

#include "framework/component/Components.h"
#include "gui/CGIRequester.h"

/// Network settings that wait to be confirmed. Pages that change them show a notice, whose form the
/// page at PROBATION_PATH takes.
namespace Console {

constexpr char PROBATION_PATH[] = "/network/probation.cgi";

/// Fields of the form: the settings that the user sees, and the button of the new or the old ones.
constexpr char PROBATION_FIELD[] = "probation";
constexpr char KEEP_FIELD[] = "keep";
constexpr char UNDO_FIELD[] = "undo";

/// The notice; null when no settings wait. `problem`, unless empty, says why the form was not
/// carried out. A failure of the board ends in the error page.
Component makeProbationNotice(ORVLib::Gui::CGIRequester& requester,
                              const std::string& problem = "");

/// Tells the board to keep the new settings, if the request came by them. Returns 0, or why they
/// are not kept: ERROR_NOT_FOUND or ERROR_NOT_REACHED.
unsigned int keepSettings(ORVLib::Gui::CGIRequester& requester, const std::string& revision);

/// Tells the board to go back. Returns 0, or ERROR_NOT_FOUND.
unsigned int undoSettings(ORVLib::Gui::CGIRequester& requester, const std::string& revision);

}  // namespace Console
