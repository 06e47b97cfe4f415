#pragma once

#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A meta element of the page's head.
///
/// The name "FRAME-ID" is printed as a name attribute, every other one as http-equiv. A URL, when
/// there is one, follows the content, as "Refresh" wants it. Nothing is escaped.
class ORVGUI_EXPORT MetaTag : public HTMLComponent {
public:
    /// `note` is for the page's own use: it is not printed.
    explicit MetaTag(const std::string& name, const std::string& content = "",
                     const std::string& url = "", const std::string& note = "")
        : m_name(name), m_content(content), m_url(url), m_note(note) {}

    void printHTML() const override;
    bool isError() const override;

    /// What the element says something about, such as "Refresh".
    const std::string& getName() const { return m_name; }
    void setName(const std::string& name) { m_name = name; }

    /// What it says.
    const std::string& getContent() const { return m_content; }
    void setContent(const std::string& content) { m_content = content; }

    /// Where "Refresh" leads; empty for none.
    const std::string& getUrl() const { return m_url; }
    void setUrl(const std::string& url) { m_url = url; }

    /// For the page's own use: it is not printed.
    const std::string& getNote() const { return m_note; }
    void setNote(const std::string& note) { m_note = note; }

private:
    std::string m_name;
    std::string m_content;
    std::string m_url;
    std::string m_note;
};

}  // namespace ORVLib::Gui
