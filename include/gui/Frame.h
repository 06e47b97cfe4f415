#pragma once

#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// One frame of a frameset. Nothing is escaped: encode the URL with MessageMgr::encodeURL().
class ORVGUI_EXPORT Frame : public HTMLComponent {
public:
    /// `src` is the URL of the frame's first page. All arguments can be changed later.
    explicit Frame(const std::string& name, const std::string& src = "", bool scrolling = false,
                   bool border = false, bool resize = false)
        : m_name(name), m_src(src), m_scrolling(scrolling), m_border(border), m_resize(resize) {}

    void printHTML() const override;
    bool isError() const override;

    /// The name of the frame, for the targets of links.
    const std::string& getName() const { return m_name; }
    void setName(const std::string& name) { m_name = name; }

    /// The URL of the frame's first page.
    const std::string& getSrc() const { return m_src; }
    void setSrc(const std::string& src) { m_src = src; }

    /// Whether the frame may have scroll bars.
    bool isScrolling() const { return m_scrolling; }
    void setScrolling(bool scrolling) { m_scrolling = scrolling; }

    /// Whether the frame has a border.
    bool hasBorder() const { return m_border; }
    void setBorder(bool border) { m_border = border; }

    /// Whether the user may resize the frame.
    bool isResize() const { return m_resize; }
    void setResize(bool resize) { m_resize = resize; }

private:
    std::string m_name;
    std::string m_src;
    bool m_scrolling;
    bool m_border;
    bool m_resize;
};

}  // namespace ORVLib::Gui
