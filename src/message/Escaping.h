#pragma once

#include <string_view>

#include "base/Output.h"

namespace ORVLib::Gui {

/// Prints `text` as MessageMgr::convertHTML() escapes it, without a copy.
void printEscaped(Output& output, std::string_view text);

}  // namespace ORVLib::Gui
