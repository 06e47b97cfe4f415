#pragma once

#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A text on the page, plain or in a status colour. It is escaped unless it is marked as raw HTML.
///
/// @code
/// HTMLPage page(1);
/// HTMLMapUtil::insertIntoMap(page.getMap(), "state",
///                            new TextString("Fan 2 < 1000 rpm", false, false,
///                                           TextString::WARNING_COLOUR));
/// @endcode
class ORVGUI_EXPORT TextString : public HTMLComponent {
public:
    /// Colours, as indices into colorStyle. Any other number prints the text without an element
    /// around it.
    enum Colour {
        ERROR_COLOUR = 0,
        WARNING_COLOUR = 1,
        DEGRADE_COLOUR = 2,
        NORMAL_COLOUR = 3,
        WHITE_COLOUR = 4,
        MAINTENANCE_COLOUR = 5,
        PLAIN = 6
    };

    /// Class names in the style sheet, by colour.
    static const char colorStyle[6][16];

    /// With `raw`, `text` is printed as HTML. REQUIRES: user input in a raw text is escaped.
    /// `flag` is for the page's own use.
    explicit TextString(const std::string& text, bool flag = false, bool raw = false,
                        int colour = PLAIN)
        : m_text(text), m_flag(flag), m_raw(raw), m_colour(colour) {}

    /// Prints the text up to its first NUL byte.
    void printHTML() const override;
    bool isError() const override;

    /// The text, not escaped.
    const std::string& getText() const { return m_text; }
    void setText(const std::string& text) { m_text = text; }

    /// A flag for the page's own use. It has no effect here.
    bool getFlag() const { return m_flag; }
    void setFlag(bool flag) { m_flag = flag; }

    /// Whether the text is printed as HTML.
    bool isRaw() const { return m_raw; }
    void setRaw(bool raw) { m_raw = raw; }

    /// A Colour.
    int getColour() const { return m_colour; }
    void setColour(int colour) { m_colour = colour; }

private:
    std::string m_text;
    bool m_flag;
    bool m_raw;
    int m_colour;
};

}  // namespace ORVLib::Gui
