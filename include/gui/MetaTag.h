#pragma once

#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A meta element in the head of a page.
///
/// The name "FRAME-ID" is printed in the attribute `name`, any other in `http-equiv`. A URL is
/// appended to the content in the form that "Refresh" takes. Nothing is escaped.
///
/// @code
/// HTMLPage page(1);
/// HTMLMapUtil::insertIntoMap(page.getMap(), "meta_refresh",
///                            new MetaTag("Refresh", "60", "/system/sys_status.cgi"));
/// @endcode
class ORVGUI_EXPORT MetaTag : public HTMLComponent {
public:
    /// All arguments can be changed later.
    explicit MetaTag(const std::string& name, const std::string& content = "",
                     const std::string& url = "", const std::string& note = "")
        : m_name(name), m_content(content), m_url(url), m_note(note) {}

    void printHTML() const override;
    bool isError() const override;

    /// The name of the element, such as "Refresh".
    const std::string& getName() const { return m_name; }
    void setName(const std::string& name) { m_name = name; }

    /// The value of the element; for "Refresh" the seconds.
    const std::string& getContent() const { return m_content; }
    void setContent(const std::string& content) { m_content = content; }

    /// The URL that "Refresh" loads; empty for none.
    const std::string& getUrl() const { return m_url; }
    void setUrl(const std::string& url) { m_url = url; }

    /// A text for the page's own use. It is not printed.
    const std::string& getNote() const { return m_note; }
    void setNote(const std::string& note) { m_note = note; }

private:
    std::string m_name;
    std::string m_content;
    std::string m_url;
    std::string m_note;
};

}  // namespace ORVLib::Gui
