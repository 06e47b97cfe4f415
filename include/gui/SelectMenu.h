#pragma once

#include <deque>
#include <utility>

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A drop-down menu. Without options nothing is printed.
///
/// Nothing is escaped: values and labels are the page's own texts.
class ORVGUI_EXPORT SelectMenu : public FormComponent, public HTMLComponent {
public:
    /// `selected` is the index of the selected option; an index that no option has, a negative one
    /// too, selects none. `displayMode` is a DisplayMode, not owned; null is editable.
    explicit SelectMenu(const std::string& name, const std::string& value = "",
                        const std::string& form = "", int selected = 0,
                        const int* displayMode = nullptr, bool disabled = false)
        : FormComponent(name, value, form),
          m_selected(selected),
          m_displayMode(displayMode),
          m_disabled(disabled) {}

    /// Appends an option and, when `selected`, selects it.
    void add(const std::string& value, const std::string& label, bool selected = false);

    /// Selects the option at `index`, counted from 0. An index that no option has is ignored.
    void select(int index);
    int getSelected() const { return m_selected; }

    /// Calls `function`(`arguments`) when the selection changes, or on a click. Nothing is
    /// escaped; use single quotes in it.
    void setOnChangeFunction(std::string function, std::string arguments);
    void setOnClickFunction(std::string function, std::string arguments);

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// Disabled whatever the display mode is.
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
