#pragma once

#include <string>
#include <vector>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A script function that is built line by line. The script element around it is part of the
/// skeleton.
///
/// Nothing is escaped. REQUIRES: texts contain no double quote, backslash or line end that is not
/// escaped for a script, and no user input.
///
/// @code
/// JsFunction function("check(form)");
/// function.addFunction("if (form.name.value != \"\") return true;");
/// function.addAlertFunction("Enter a name.");
/// function.addFunction("return false;");
/// function.printHTML();
/// @endcode
class ORVGUI_EXPORT JsFunction : public HTMLComponent {
public:
    /// `head` is the function's name and parameter list, such as "check(form)".
    explicit JsFunction(const std::string& head) : m_head(head) {}

    /// Prints the function: a line for the head, the lines that were added, a line for the end.
    void printHTML() const override;
    bool isError() const override;

    /// Adds a line of script.
    void addFunction(const std::string& line);

    /// Adds a call of `function` with one argument, the string `text`.
    void addFunction(const std::string& function, const std::string& text);

    /// Adds an assignment of an array of strings to `name`. Each value is cut at its first NUL.
    void addArray(const std::string& name, const std::vector<std::string>& values);

    /// Adds an assignment to the entry `key` of the script's table `strMSG`, which the page must
    /// define.
    void addMessage(const std::string& key, const std::string& text);

    /// Adds an alert box with `text`, to which a blank is appended.
    void addAlertFunction(std::string text);

private:
    std::string m_head;
    std::vector<std::string> m_lines;
};

}  // namespace ORVLib::Gui
