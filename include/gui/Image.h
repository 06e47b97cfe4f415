#pragma once

#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// An image, alone or as a table cell, with the size it is shown in.
///
/// The size is kept as text and read as the board reads numbers: 32 bits, saturating, a negative
/// one counting as its two's complement. Nothing is escaped.
class ORVGUI_EXPORT Image : public HTMLComponent {
public:
    /// Takes the size from a source named like "fan_120x40.gif": the width stands between the last
    /// "_" and the last "x", the height between that and the last ".". Without one of the three
    /// there is no size; where they stand in another order, a text runs to the end of the source.
    explicit Image(const std::string& source, const std::string& alt = "", bool cell = false,
                   int border = 0, const std::string& name = "", const std::string& id = "");

    /// Empty texts mean no size.
    void setImageDispSize(const std::string& width, const std::string& height);
    void getImageDispSize(std::string& width, std::string& height) const;

    /// Shrinks the size, in proportion, to fit into the box; it never grows. Returns false when
    /// there is no size. An image of height 0 becomes as wide as the box.
    bool resizeImageDispSize(unsigned int maxWidth, unsigned int maxHeight);

    /// Multiplies the size by `factor`, modulo 2^32, or divides it. Returns false, with the size
    /// as it was, when there is none, when `factor` is 0 and when a side would become 0.
    bool zoomImageDispSize(unsigned int factor, bool divide);

    /// The URL. To set it leaves the size as it is.
    const std::string& getSource() const { return m_source; }
    void setSource(const std::string& source) { m_source = source; }

    /// The text in place of an image that cannot be shown.
    const std::string& getAlt() const { return m_alt; }
    void setAlt(const std::string& alt) { m_alt = alt; }

    /// Print the image as a table cell.
    bool isCell() const { return m_cell; }
    void setCell(bool cell) { m_cell = cell; }

    /// Width of the border in pixels.
    int getBorder() const { return m_border; }
    void setBorder(int border) { m_border = border; }

    /// The name and the ID by which scripts find the image.
    const std::string& getName() const { return m_name; }
    void setName(const std::string& name) { m_name = name; }
    const std::string& getId() const { return m_id; }
    void setId(const std::string& id) { m_id = id; }

    /// The script that a click runs.
    const std::string& getOnClick() const { return m_onClick; }
    void setOnClick(const std::string& onClick) { m_onClick = onClick; }

    /// Print the script between double quotes; without, it brings its own.
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
