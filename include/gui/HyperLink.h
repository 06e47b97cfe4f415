#pragma once

#include <memory>
#include <string>
#include <utility>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A link around another component. It leads to a URL or, in script mode, runs a script.
///
/// Nothing is escaped: encode the URL with MessageMgr::encodeURL(). The script is printed in single
/// quotes and must not contain one.
///
/// @code
/// std::string url = "/partition/boot_control.cgi?partition=3";
/// MessageMgr::encodeURL(url);
/// HyperLink link(url, "_top");
/// link.setContent(std::make_unique<TextString>("Boot control"));
/// link.printHTML();
/// @endcode
class ORVGUI_EXPORT HyperLink : public HTMLComponent {
public:
    /// All arguments can be changed later. The link owns `content`, which was created with new;
    /// null shows nothing.
    explicit HyperLink(const std::string& url, const std::string& target = "",
                       const std::string& cssClass = "", const std::string& script = "",
                       bool scriptMode = false, HTMLComponent* content = nullptr)
        : HyperLink(url, target, cssClass, script, scriptMode,
                    std::unique_ptr<HTMLComponent>(content)) {}

    /// As above, for content held by a std::unique_ptr.
    HyperLink(const std::string& url, const std::string& target, const std::string& cssClass,
              const std::string& script, bool scriptMode, std::unique_ptr<HTMLComponent> content)
        : m_url(url),
          m_target(target),
          m_cssClass(cssClass),
          m_script(script),
          m_scriptMode(scriptMode),
          m_content(std::move(content)) {}
    HyperLink(const HyperLink&) = delete;
    HyperLink& operator=(const HyperLink&) = delete;

    void printHTML() const override;
    bool isError() const override;

    /// The URL that the link leads to.
    const std::string& getUrl() const { return m_url; }
    void setUrl(const std::string& url) { m_url = url; }

    /// The frame or window that shows the URL; empty for the frame of the link.
    const std::string& getTarget() const { return m_target; }
    void setTarget(const std::string& target) { m_target = target; }

    /// The link's class in the style sheet; empty for none.
    const std::string& getCssClass() const { return m_cssClass; }
    void setCssClass(const std::string& cssClass) { m_cssClass = cssClass; }

    /// The script that a click runs in script mode.
    const std::string& getScript() const { return m_script; }
    void setScript(const std::string& script) { m_script = script; }

    /// In script mode a click runs the script, and URL and target are not printed.
    bool isScriptMode() const { return m_scriptMode; }
    void setScriptMode(bool scriptMode) { m_scriptMode = scriptMode; }

    /// The component inside the link; null for none. The link owns it and deletes the one before.
    HTMLComponent* getContent() const { return m_content.get(); }
    void setContent(HTMLComponent* content) {
        if (content != m_content.get()) {
            m_content.reset(content);
        }
    }

    /// As above, for content held by a std::unique_ptr.
    void setContent(std::unique_ptr<HTMLComponent> content) { m_content = std::move(content); }

private:
    std::string m_url;
    std::string m_target;
    std::string m_cssClass;
    std::string m_script;
    bool m_scriptMode;
    std::unique_ptr<HTMLComponent> m_content;
};

}  // namespace ORVLib::Gui
