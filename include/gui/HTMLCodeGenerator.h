#pragma once

#include <string>

#include "gui/HTMLMapUtil.h"

namespace ORVLib::Gui {

/// Prints a page: copies a skeleton file to standard output and replaces each marker by its
/// component.
///
/// A marker is a name between two "$" and may contain any byte but "$". "$$" prints a "$". A marker
/// without a component prints nothing. The end of the file closes an open marker.
///
/// @code
/// ComponentMap map;
/// HTMLMapUtil::insertIntoMap(map, "body", new TextString("Hello"));
/// HTMLCodeGenerator generator(&map);
/// generator.setSkeletonFileName("/usr/local/www/skel/skeleton_top.txt");
/// generator.printHTML();
/// HTMLMapUtil::clearMap(map);
/// @endcode
class ORVGUI_EXPORT HTMLCodeGenerator {
public:
    /// The skeleton is HTMLPage::SKELETON_FILE_NAME until another one is set. `map` is not owned
    /// and must outlive the generator. Null counts as an empty map.
    explicit HTMLCodeGenerator(ComponentMap* map);
    virtual ~HTMLCodeGenerator();
    HTMLCodeGenerator(const HTMLCodeGenerator&) = delete;
    HTMLCodeGenerator& operator=(const HTMLCodeGenerator&) = delete;

    /// The whole path of the skeleton file.
    const std::string& getSkeletonFileName() const { return m_skeletonFileName; }
    void setSkeletonFileName(const std::string& fileName) { m_skeletonFileName = fileName; }

    /// Prints the page. If the skeleton cannot be read, an operator message is printed instead and
    /// a trace entry is written. A null component prints nothing.
    void printHTML() const;

    /// True when at least one component of the map is invalid. Asks them in the order of their
    /// markers, up to the first that is. A null component is valid.
    bool isError() const;

private:
    void printMarker(const std::string& name) const;
    void printUnreadable() const;
    void logUnreadable() const;

    std::string m_skeletonFileName;
    ComponentMap* m_map;
};

}  // namespace ORVLib::Gui
