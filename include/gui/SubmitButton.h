#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// The button that submits its form. It cannot be disabled.
///
/// Nothing is escaped, as in Button.
class ORVGUI_EXPORT SubmitButton : public FormComponent, public HTMLComponent {
public:
    /// `value` is the caption; `form` is not printed.
    explicit SubmitButton(const std::string& name, const std::string& value = "",
                          const std::string& form = "", int attribute = 0,
                          const std::string& onClick = "")
        : FormComponent(name, value, form), m_attribute(attribute), m_onClick(onClick) {}

    void printHTML() const override;
    bool isError() const override;

    /// A number for the page's own use. It is not printed.
    int getAttribute() const { return m_attribute; }
    void setAttribute(int attribute) { m_attribute = attribute; }

    /// The script that a click runs before the form is submitted, with its quotes; empty for none.
    const std::string& getOnClick() const { return m_onClick; }
    void setOnClick(const std::string& onClick) { m_onClick = onClick; }

private:
    int m_attribute;
    std::string m_onClick;
};

}  // namespace ORVLib::Gui
