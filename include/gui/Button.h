#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A push button that runs a script.
///
/// Nothing is escaped: name and label are the page's own texts, and the script brings its own
/// quotes, for example `"check(this.form)"` with the double quotes.
class ORVGUI_EXPORT Button : public FormComponent, public HTMLComponent {
public:
    /// What follows `name` can be set later, too.
    explicit Button(const std::string& name, const std::string& value = "",
                    const std::string& form = "", int attribute = 0,
                    const std::string& onClick = "", bool disabled = false)
        : FormComponent(name, value, form),
          m_attribute(attribute),
          m_onClick(onClick),
          m_disabled(disabled) {}

    void printHTML() const override;
    bool isError() const override;

    /// A number for the page's own use: it is not printed.
    int getAttribute() const { return m_attribute; }
    void setAttribute(int attribute) { m_attribute = attribute; }

    /// The script that a click runs, with its quotes.
    const std::string& getOnClick() const { return m_onClick; }
    void setOnClick(const std::string& onClick) { m_onClick = onClick; }

    /// A disabled button is shown, and runs nothing.
    bool isDisabled() const { return m_disabled; }
    void setDisabled(bool disabled) { m_disabled = disabled; }

private:
    int m_attribute;
    std::string m_onClick;
    bool m_disabled;
};

}  // namespace ORVLib::Gui
