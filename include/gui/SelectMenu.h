#pragma once

#include <deque>
#include <utility>

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A drop-down menu. A menu without options prints nothing.
///
/// Nothing is escaped: values and labels must be the page's own texts.
///
/// @code
/// SelectMenu speed("speed");
/// speed.add("auto", "Automatic");
/// speed.add("100", "100 Mbit/s", true);
/// speed.setOnChangeFunction("check", "this.form, 'speed'");
/// speed.printHTML();
/// @endcode
class ORVGUI_EXPORT SelectMenu : public FormComponent, public HTMLComponent {
public:
    /// `selected` is the index of the selected option, from 0; an index without an option, such as
    /// -1, selects none. `displayMode` points to a DisplayMode, which is not owned; null is
    /// editable.
    explicit SelectMenu(const std::string& name, const std::string& value = "",
                        const std::string& form = "", int selected = 0,
                        const int* displayMode = nullptr, bool disabled = false)
        : FormComponent(name, value, form),
          m_selected(selected),
          m_displayMode(displayMode),
          m_disabled(disabled) {}

    /// Appends an option, and selects it when `selected` is true.
    void add(const std::string& value, const std::string& label, bool selected = false);

    /// Selects the option at `index`, from 0. Ignores an index without an option.
    void select(int index);
    int getSelected() const { return m_selected; }

    /// Calls the script `function`(`arguments`) when the selection changes, or on a click. Nothing
    /// is escaped, and the attribute is in double quotes: use single quotes in the arguments.
    void setOnChangeFunction(std::string function, std::string arguments);
    void setOnClickFunction(std::string function, std::string arguments);

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// Disables the menu, in every display mode.
    bool isDisabled() const { return m_disabled; }
    void setDisabled(bool disabled) { m_disabled = disabled; }

    void printHTML() const override;
    bool isError() const override;

private:
    std::deque<std::pair<const std::string, std::string>> m_options;  // value, label
    int m_selected;
    const int* m_displayMode;
    bool m_disabled;
    std::string m_onChange;
    std::string m_onClick;
};

}  // namespace ORVLib::Gui
