#pragma once

#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// An image, alone or as a table cell, with a display size.
///
/// The size is kept as text. Calculations read it as a number that saturates at 32 bits; a negative
/// number counts as its two's complement. Nothing is escaped.
///
/// @code
/// Image fan("/images/fan_120x40.gif", "Fan 2");  // 120 by 40 pixels
/// fan.resizeImageDispSize(64, 64);               // now 64 by 21
/// fan.printHTML();
/// @endcode
class ORVGUI_EXPORT Image : public HTMLComponent {
public:
    /// Takes the size from a file name such as "fan_120x40.gif": the width is the text between the
    /// last "_" and the last "x", the height the text from there to the last ".". If one of the
    /// three is missing, there is no size. In any other order the texts reach to the end of the
    /// source.
    explicit Image(const std::string& source, const std::string& alt = "", bool cell = false,
                   int border = 0, const std::string& name = "", const std::string& id = "");

    /// The size in pixels. An empty text means that the side has no size and is not printed.
    void setImageDispSize(const std::string& width, const std::string& height);
    void getImageDispSize(std::string& width, std::string& height) const;

    /// Reduces the size, in proportion, so that it fits into the box; never enlarges it. Returns
    /// false when a side has no size. An image of height 0 becomes as wide as the box.
    bool resizeImageDispSize(unsigned int maxWidth, unsigned int maxHeight);

    /// Multiplies the size by `factor`, modulo 2^32, or divides it. Returns false and changes
    /// nothing when a side has no size, when `factor` is 0, or when a side would become 0.
    bool zoomImageDispSize(unsigned int factor, bool divide);

    /// The URL. Setting it does not change the size.
    const std::string& getSource() const { return m_source; }
    void setSource(const std::string& source) { m_source = source; }

    /// The text that browsers show when they cannot show the image.
    const std::string& getAlt() const { return m_alt; }
    void setAlt(const std::string& alt) { m_alt = alt; }

    /// Whether the image is printed as a table cell.
    bool isCell() const { return m_cell; }
    void setCell(bool cell) { m_cell = cell; }

    /// Width of the border in pixels.
    int getBorder() const { return m_border; }
    void setBorder(int border) { m_border = border; }

    /// The name and ID of the image, for scripts.
    const std::string& getName() const { return m_name; }
    void setName(const std::string& name) { m_name = name; }
    const std::string& getId() const { return m_id; }
    void setId(const std::string& id) { m_id = id; }

    /// The script that a click runs; empty for none.
    const std::string& getOnClick() const { return m_onClick; }
    void setOnClick(const std::string& onClick) { m_onClick = onClick; }

    /// Whether the script is printed between double quotes. If not, it must include its quotes.
    bool isQuoteScript() const { return m_quoteScript; }
    void setQuoteScript(bool quoteScript) { m_quoteScript = quoteScript; }

    void printHTML() const override;
    bool isError() const override;

private:
    std::string m_source;
    std::string m_width;
    std::string m_height;
    std::string m_alt;
    bool m_cell;
    int m_border;
    std::string m_name;
    std::string m_id;
    std::string m_onClick;
    bool m_quoteScript = false;
};

}  // namespace ORVLib::Gui
