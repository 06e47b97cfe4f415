#pragma once

#include <string>
#include <vector>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A script function, put together line by line. The skeleton brings the script element around it.
///
/// Nothing is escaped: texts must be ready to stand in a script's string.
class ORVGUI_EXPORT JsFunction : public HTMLComponent {
public:
    /// `head` is the function's name with its parameter list, such as "check(form)".
    explicit JsFunction(const std::string& head) : m_head(head) {}

    /// Prints the function: one line for its head, one for each line of its body, one for its end.
    void printHTML() const override;
    bool isError() const override;

    /// Adds a line as it is.
    void addFunction(const std::string& line);

    /// Adds a call of `function` with one text.
    void addFunction(const std::string& function, const std::string& text);

    /// Adds an assignment of an array of texts, each up to its first NUL byte.
    void addArray(const std::string& name, const std::vector<std::string>& values);

    /// Adds an entry of the table of message texts `strMSG`.
    void addMessage(const std::string& key, const std::string& text);

    /// Adds an alert. A blank follows the text.
    void addAlertFunction(std::string text);

private:
    std::string m_head;
    std::vector<std::string> m_lines;
};

}  // namespace ORVLib::Gui
