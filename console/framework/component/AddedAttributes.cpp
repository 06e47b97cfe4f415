#include "framework/component/AddedAttributes.h"

#include <iostream>
#include <sstream>
#include <string_view>

namespace Console {

namespace {

/// How tags with added attributes begin. The quotation marks in a value that was typed are escaped,
/// so no value is taken for a tag.
constexpr std::string_view TAGS[] = {
    "<input type=\"text\"",  "<input type=\"password\"",
    "<input type=\"radio\"", "<input type=\"checkbox\"",
    "<input type=\"file\"",  "<select name=\"",
    "<a class=\"",           "<a href=\"",
};

/// Collects what is printed to std::cout.
class Capture {
public:
    Capture() : m_output(std::cout.rdbuf(m_text.rdbuf())) {}
    ~Capture() { std::cout.rdbuf(m_output); }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    std::string getText() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_output;
};

std::string printed(const std::function<void()>& print) {
    const Capture capture;
    print();
    return capture.getText();
}

/// The length of the tag's name at a place of a text; 0 where no tag begins.
std::size_t tagNameAt(const std::string& text, std::size_t at) {
    for (const std::string_view tag : TAGS) {
        if (text.compare(at, tag.size(), tag) == 0) {
            return tag.find(' ');
        }
    }
    return 0;
}

}  // namespace

std::string attribute(const std::string& name, const std::string& value) {
    return ' ' + name + "=\"" + htmlText(value) + '"';
}

void printWithAttributes(const std::function<void()>& print, const Attributes& attributes) {
    std::string text = printed(print);
    std::size_t number = 0;
    for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
        if (const std::size_t name = tagNameAt(text, at); name != 0) {
            text.insert(at + name, attributes(number++));
        }
    }
    std::cout << text;
}

Component makeTab(const std::string& url, const std::string& text, bool isCurrent,
                  const std::string& target) {
    Component link = makeLink(url, text, target, isCurrent ? "current" : "");
    return isCurrent
               ? std::make_unique<AddedAttributes>(
                     std::move(link), [](std::size_t) { return attribute("aria-current", "page"); })
               : std::move(link);
}

}  // namespace Console
