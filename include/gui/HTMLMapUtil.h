#pragma once

#include <map>
#include <memory>
#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// Components by the name of their marker. The owner of a map owns the components in it.
using ComponentMap = std::map<std::string, HTMLComponent*>;

/// Puts components into a map and deletes them. Use it instead of the map's own operations, which
/// do not delete a component that is replaced or removed.
///
/// @code
/// ComponentMap map;
/// HTMLMapUtil::insertIntoMap(map, "name", new TextField("name"));
/// HTMLMapUtil::insertIntoMap(map, "save", std::make_unique<SubmitButton>("save", "Save"));
/// HTMLMapUtil::clearMap(map);
/// @endcode
class ORVGUI_EXPORT HTMLMapUtil {
public:
    HTMLMapUtil() = delete;

    /// Puts `component`, which was created with new, into the map; the map's owner owns it from now
    /// on. Returns true for a new key. When `key` has a component already, that is deleted, the
    /// new one takes its place, and the result is false. Null prints nothing at the marker.
    static bool insertIntoMap(ComponentMap& map, const std::string& key, HTMLComponent* component);

    /// As above, for a component held by a std::unique_ptr.
    static bool insertIntoMap(ComponentMap& map, const std::string& key,
                              std::unique_ptr<HTMLComponent> component) {
        return insertIntoMap(map, key, component.release());
    }

    /// Deletes every component and empties the map.
    static void clearMap(ComponentMap& map);
};

}  // namespace ORVLib::Gui
