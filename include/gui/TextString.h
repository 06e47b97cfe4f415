#pragma once

#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A text on the page, escaped unless it is marked as HTML, in a status colour or plain.
class ORVGUI_EXPORT TextString : public HTMLComponent {
public:
    /// Colours are indices into colorStyle. Every other number, a negative one too, prints the
    /// text with no element around it.
    enum Colour {
        ERROR_COLOUR = 0,
        WARNING_COLOUR = 1,
        DEGRADE_COLOUR = 2,
        NORMAL_COLOUR = 3,
        WHITE_COLOUR = 4,
        MAINTENANCE_COLOUR = 5,
        PLAIN = 6
    };

    /// Class names of the style sheet, by colour.
    static const char colorStyle[6][16];

    /// `raw` says that `text` is HTML already. It is the page's promise that nothing in it came
    /// from a person unescaped. `flag` is for the page's own use.
    explicit TextString(const std::string& text, bool flag = false, bool raw = false,
                        int colour = PLAIN)
        : m_text(text), m_flag(flag), m_raw(raw), m_colour(colour) {}

    /// Prints the text up to its first NUL byte.
    void printHTML() const override;
    bool isError() const override;

    /// The text as it was given, not escaped.
    const std::string& getText() const { return m_text; }
    void setText(const std::string& text) { m_text = text; }

    /// For the page's own use.
    bool getFlag() const { return m_flag; }
    void setFlag(bool flag) { m_flag = flag; }

    /// Whether the text is HTML already and printed as it is.
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
