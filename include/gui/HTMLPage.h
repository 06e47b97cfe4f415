#pragma once

#include <memory>
#include <string>

#include "gui/HTMLCodeGenerator.h"
#include "gui/HTMLMapUtil.h"

namespace ORVLib::Gui {

/// One page: its components by marker name, and the generator that writes it.
///
/// Build it once, put components into getMap() with HTMLMapUtil::insertIntoMap(), print it with
/// getGenerator().printHTML(). The skeleton brings the response's header lines.
class ORVGUI_EXPORT HTMLPage {
public:
    /// The skeleton of a page unless another is set, and that of an error page.
    static const char* SKELETON_FILE_NAME;
    static const char* SKELETON_ERR_FILE_NAME;

    /// Name of the form field that carries a configuration page's state.
    static const std::string FORM_PAGE_STATE;

    /// Names of markers.
    static const std::string KEY_JAVA_SCRIPT;
    static const std::string KEY_BODY;
    static const std::string KEY_COOKIE;

    /// Puts the name of the language's character set under "destination": "EUC-JP" for language 0,
    /// "iso-8859-1" for any other.
    explicit HTMLPage(int language);
    virtual ~HTMLPage();
    HTMLPage(const HTMLPage&) = delete;
    HTMLPage& operator=(const HTMLPage&) = delete;

    /// The components by marker, and what prints them into the skeleton.
    ComponentMap& getMap() { return m_map; }
    HTMLCodeGenerator& getGenerator() { return *m_generator; }

private:
    ComponentMap m_map;
    std::unique_ptr<HTMLCodeGenerator> m_generator;
};

}  // namespace ORVLib::Gui
