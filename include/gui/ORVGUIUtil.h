#pragma once

#include <string>

#include "gui/Export.h"

namespace ORVLib::Gui {

/// The paths of the functions' pages.
///
/// @code
/// HyperLink link(ORVGUIUtil::getCGIPath(11));  // "/system/led_config.cgi"
/// @endcode
class ORVGUI_EXPORT ORVGUIUtil {
public:
    ORVGUIUtil() = default;
    virtual ~ORVGUIUtil();

    /// The path of a function's page on the web server. Functions may share a page. For an ID
    /// without a page the result is empty and a trace entry is written.
    static std::string getCGIPath(int functionId);
};

}  // namespace ORVLib::Gui
