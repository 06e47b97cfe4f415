#pragma once

#include "gui/Export.h"

namespace ORVLib::Gui {

/// A piece of a page that prints itself as HTML: the base of all components.
///
/// A page creates components with new and puts them into a map under the names of markers
/// (HTMLMapUtil::insertIntoMap()). The owner of the map deletes them. A page may define components
/// of its own:
///
/// @code
/// class Rule : public HTMLComponent {
/// public:
///     void printHTML() const override { std::cout << "<hr>"; }
///     bool isError() const override { return false; }
/// };
/// HTMLPage page(1);
/// HTMLMapUtil::insertIntoMap(page.getMap(), "rule", new Rule);
/// @endcode
class ORVGUI_EXPORT HTMLComponent {
public:
    virtual ~HTMLComponent();

    /// Prints the component to std::cout. Printing again prints the same.
    virtual void printHTML() const = 0;

    /// True when the component's current value is invalid.
    virtual bool isError() const = 0;

protected:
    HTMLComponent() = default;
    HTMLComponent(const HTMLComponent&) = default;
    HTMLComponent& operator=(const HTMLComponent&) = default;
};

}  // namespace ORVLib::Gui
