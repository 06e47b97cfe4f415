#pragma once

#include <string>

#include "gui/Export.h"

namespace ORVLib::Gui {

/// Where the pages of the functions lie.
class ORVGUI_EXPORT ORVGUIUtil {
public:
    ORVGUIUtil() = default;
    virtual ~ORVGUIUtil();

    /// The server path of a function's page. Several functions may share one. An ID without a page
    /// is logged and gives an empty path.
    static std::string getCGIPath(int functionId);
};

}  // namespace ORVLib::Gui
