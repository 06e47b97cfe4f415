#pragma once

#include <string>

#include "gui/HTMLMapUtil.h"

namespace ORVLib::Gui {

/// Writes a page: copies a skeleton file to standard output and lets the component of each marker
/// print itself in the marker's place.
///
/// A marker is a name between two "$"; it may hold any byte but "$". Two "$" in a row print one.
/// A marker without a component prints nothing. A marker that the end of the file leaves open
/// counts as closed.
class ORVGUI_EXPORT HTMLCodeGenerator {
public:
    /// Copies HTMLPage::SKELETON_FILE_NAME unless another file is set. `map` is not owned and
    /// must outlive the generator. Null is a map without components.
    explicit HTMLCodeGenerator(ComponentMap* map);
    virtual ~HTMLCodeGenerator();
    HTMLCodeGenerator(const HTMLCodeGenerator&) = delete;
    HTMLCodeGenerator& operator=(const HTMLCodeGenerator&) = delete;

    /// The skeleton file with its whole path.
    const std::string& getSkeletonFileName() const { return m_skeletonFileName; }
    void setSkeletonFileName(const std::string& fileName) { m_skeletonFileName = fileName; }

    /// Writes the page. A skeleton that cannot be read gives an operator message in its place and
    /// a trace entry. A null component prints nothing.
    void printHTML() const;

    /// True when one component of the map, in the order of their names, says that it is invalid.
    /// A null component is not.
    bool isError() const;

private:
    void printMarker(const std::string& name) const;
    void printUnreadable() const;
    void logUnreadable() const;

    std::string m_skeletonFileName;
    ComponentMap* m_map;
};

}  // namespace ORVLib::Gui
