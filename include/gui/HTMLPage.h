#pragma once

#include <memory>
#include <string>

#include "gui/HTMLCodeGenerator.h"
#include "gui/HTMLMapUtil.h"

namespace ORVLib::Gui {

/// A whole page: the components by marker, and the generator that prints them into the skeleton.
/// The page owns its components. The response's header lines are part of the skeleton.
///
/// @code
/// HTMLPage page(1);
/// HTMLMapUtil::insertIntoMap(page.getMap(), "title", new TextString("Fans"));
/// HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_BODY, new TextString("3 of 3 turn"));
/// page.getGenerator().printHTML();
/// @endcode
class ORVGUI_EXPORT HTMLPage {
public:
    /// Paths of the default skeleton and of the skeleton of error pages.
    static const char* SKELETON_FILE_NAME;
    static const char* SKELETON_ERR_FILE_NAME;

    /// Name of the form field that carries the state of a CommonDefaultPage.
    static const std::string FORM_PAGE_STATE;

    /// Names of the markers for scripts, for the body and for the session cookie.
    static const std::string KEY_JAVA_SCRIPT;
    static const std::string KEY_BODY;
    static const std::string KEY_COOKIE;

    /// Creates a page in a language. The name of its character set is put at the marker
    /// "destination": "EUC-JP" for language 0, "iso-8859-1" for any other.
    explicit HTMLPage(int language);
    virtual ~HTMLPage();
    HTMLPage(const HTMLPage&) = delete;
    HTMLPage& operator=(const HTMLPage&) = delete;

    /// The components by marker, and the generator.
    ComponentMap& getMap() { return m_map; }
    HTMLCodeGenerator& getGenerator() { return *m_generator; }

private:
    ComponentMap m_map;
    std::unique_ptr<HTMLCodeGenerator> m_generator;
};

}  // namespace ORVLib::Gui
