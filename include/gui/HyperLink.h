#pragma once

#include <memory>
#include <string>
#include <utility>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A link around another component, to a URL in a frame or, in script mode, to a script.
///
/// Nothing is escaped: encode the URL before (MessageMgr::encodeURL()). The script is printed
/// between single quotes and must not hold one.
class ORVGUI_EXPORT HyperLink : public HTMLComponent {
public:
    /// What follows `url` can be set later, too. `content`, made with new, passes to the link; null
    /// shows nothing.
    explicit HyperLink(const std::string& url, const std::string& target = "",
                       const std::string& cssClass = "", const std::string& script = "",
                       bool scriptMode = false, HTMLComponent* content = nullptr)
        : HyperLink(url, target, cssClass, script, scriptMode,
                    std::unique_ptr<HTMLComponent>(content)) {}

    /// As above, for content that is owned already.
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

    /// Where the link leads.
    const std::string& getUrl() const { return m_url; }
    void setUrl(const std::string& url) { m_url = url; }

    /// The frame or window that shows it; empty for the link's own.
    const std::string& getTarget() const { return m_target; }
    void setTarget(const std::string& target) { m_target = target; }

    /// A class of the style sheet.
    const std::string& getCssClass() const { return m_cssClass; }
    void setCssClass(const std::string& cssClass) { m_cssClass = cssClass; }

    /// What a click runs in script mode.
    const std::string& getScript() const { return m_script; }
    void setScript(const std::string& script) { m_script = script; }

    /// In script mode the link runs its script; URL and target are not printed.
    bool isScriptMode() const { return m_scriptMode; }
    void setScriptMode(bool scriptMode) { m_scriptMode = scriptMode; }

    /// What the link shows; null shows nothing. It passes to the link, which deletes what it showed
    /// before.
    HTMLComponent* getContent() const { return m_content.get(); }
    void setContent(HTMLComponent* content) {
        if (content != m_content.get()) {
            m_content.reset(content);
        }
    }

    /// As above, for content that is owned already.
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
