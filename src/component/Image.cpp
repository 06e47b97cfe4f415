#include "gui/Image.h"

#include <cstdint>

#include "base/Numbers.h"
#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

namespace {

/// The text between the characters at `before` and `end`, or all text after `before` when `end`
/// comes first.
std::string spanAfter(const std::string& source, std::size_t before, std::size_t end) {
    const std::size_t start = before + 1;
    return source.substr(start, end - start);
}

/// True when the image has a larger ratio of width to height than the box, so that its width limits
/// it. The ratio is infinite for an image of height 0, and for a box of height 0.
bool isWiderThanBox(std::uint32_t width, std::uint32_t height, unsigned int maxWidth,
                    unsigned int maxHeight) {
    if (height == 0) {
        return true;
    }
    return maxHeight != 0 &&
           static_cast<double>(width) / height > static_cast<double>(maxWidth) / maxHeight;
}

/// `side` in the proportion that `shown` has to `whole`, which is not 0.
std::uint32_t scaled(std::uint32_t side, unsigned int shown, std::uint32_t whole) {
    return static_cast<std::uint32_t>(side * (static_cast<double>(shown) / whole));
}

}  // namespace

Image::Image(const std::string& source, const std::string& alt, bool cell, int border,
             const std::string& name, const std::string& id)
    : m_source(source), m_alt(alt), m_cell(cell), m_border(border), m_name(name), m_id(id) {
    const std::size_t underscore = source.rfind('_');
    const std::size_t x = source.rfind('x');
    const std::size_t dot = source.rfind('.');
    if (underscore != std::string::npos && x != std::string::npos && dot != std::string::npos) {
        m_width = spanAfter(source, underscore, x);
        m_height = spanAfter(source, x, dot);
    }
}

void Image::setImageDispSize(const std::string& width, const std::string& height) {
    m_width = width;
    m_height = height;
}

void Image::getImageDispSize(std::string& width, std::string& height) const {
    width = m_width;
    height = m_height;
}

bool Image::resizeImageDispSize(unsigned int maxWidth, unsigned int maxHeight) {
    if (m_width.empty() || m_height.empty()) {
        return false;
    }
    const std::uint32_t width = Numbers::readUnsigned(m_width.c_str());
    const std::uint32_t height = Numbers::readUnsigned(m_height.c_str());
    if (width <= maxWidth && height <= maxHeight) {
        return true;
    }
    if (isWiderThanBox(width, height, maxWidth, maxHeight)) {
        setImageDispSize(std::to_string(maxWidth), std::to_string(scaled(height, maxWidth, width)));
    } else {
        setImageDispSize(std::to_string(scaled(width, maxHeight, height)),
                         std::to_string(maxHeight));
    }
    return true;
}

bool Image::zoomImageDispSize(unsigned int factor, bool divide) {
    if (m_width.empty() || m_height.empty() || factor == 0) {
        return false;
    }
    std::uint32_t width = Numbers::readUnsigned(m_width.c_str());
    std::uint32_t height = Numbers::readUnsigned(m_height.c_str());
    width = divide ? width / factor : width * factor;
    height = divide ? height / factor : height * factor;
    if (width == 0 || height == 0) {
        return false;
    }
    setImageDispSize(std::to_string(width), std::to_string(height));
    return true;
}

void Image::printHTML() const {
    Output output;
    if (m_cell) {
        output << "<td>";
    }
    output << "<img src=\"" << m_source << '"';
    if (!m_width.empty()) {
        output << " width=\"" << m_width << '"';
    }
    if (!m_height.empty()) {
        output << " height=\"" << m_height << '"';
    }
    printEvent(output, "onClick", m_onClick, m_quoteScript);
    output << " border=\"" << m_border << "\" name=\"" << m_name << "\" id=\"" << m_id
           << "\" alt=\"" << m_alt << "\">";
    if (m_cell) {
        output << "</td>";
    }
    output.print();
}

bool Image::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
