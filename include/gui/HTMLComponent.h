#pragma once

#include "gui/Export.h"

namespace ORVLib::Gui {

/// Anything that prints its own HTML into a page.
///
/// Pages create components on the heap and hand them to a map by marker name; the map's owner
/// deletes them.
class ORVGUI_EXPORT HTMLComponent {
public:
    virtual ~HTMLComponent();

    /// Writes the component's HTML to std::cout. Changes nothing: printing twice prints the same.
    virtual void printHTML() const = 0;

    /// True when the component's current value is not valid.
    virtual bool isError() const = 0;

protected:
    HTMLComponent() = default;
    HTMLComponent(const HTMLComponent&) = default;
    HTMLComponent& operator=(const HTMLComponent&) = default;
};

}  // namespace ORVLib::Gui
