#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A push button that runs a script.
///
/// Nothing is escaped: name and caption must be the page's own texts. The script is printed as it
/// is, so it has to include its quotes:
///
/// @code
/// Button button("check", "Check");
/// button.setOnClick("\"check(this.form)\"");
/// button.printHTML();
/// @endcode
class ORVGUI_EXPORT Button : public FormComponent, public HTMLComponent {
public:
    /// `value` is the caption. All arguments can be changed later.
    explicit Button(const std::string& name, const std::string& value = "",
                    const std::string& form = "", int attribute = 0,
                    const std::string& onClick = "", bool disabled = false)
        : FormComponent(name, value, form),
          m_attribute(attribute),
          m_onClick(onClick),
          m_disabled(disabled) {}

    void printHTML() const override;
    bool isError() const override;

    /// A number for the page's own use. It is not printed.
    int getAttribute() const { return m_attribute; }
    void setAttribute(int attribute) { m_attribute = attribute; }

    /// The script that a click runs, with its quotes; empty for none.
    const std::string& getOnClick() const { return m_onClick; }
    void setOnClick(const std::string& onClick) { m_onClick = onClick; }

    /// A disabled button is visible but cannot be clicked.
    bool isDisabled() const { return m_disabled; }
    void setDisabled(bool disabled) { m_disabled = disabled; }

private:
    int m_attribute;
    std::string m_onClick;
    bool m_disabled;
};

}  // namespace ORVLib::Gui
