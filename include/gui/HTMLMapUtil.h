#pragma once

#include <map>
#include <memory>
#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// Components by the name of the skeleton marker they stand for. Whoever holds a map owns the
/// components in it.
using ComponentMap = std::map<std::string, HTMLComponent*>;

/// The one way to put components into a map and to empty it.
class ORVGUI_EXPORT HTMLMapUtil {
public:
    HTMLMapUtil() = delete;

    /// Hands `component`, made with new, to the map. A component that was stored under `key` is
    /// deleted and the result is false. Null prints nothing at the marker.
    static bool insertIntoMap(ComponentMap& map, const std::string& key, HTMLComponent* component);

    /// As above, for a component that is owned already.
    static bool insertIntoMap(ComponentMap& map, const std::string& key,
                              std::unique_ptr<HTMLComponent> component) {
        return insertIntoMap(map, key, component.release());
    }

    /// Deletes every component and empties the map.
    static void clearMap(ComponentMap& map);
};

}  // namespace ORVLib::Gui
