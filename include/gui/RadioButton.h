#pragma once

#include <list>
#include <utility>

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A group of radio buttons with a common name. At most one of them is checked. A group without
/// buttons prints nothing.
///
/// Nothing is escaped: values, labels and IDs must be the page's own texts.
///
/// @code
/// RadioButton led("led");
/// led.add("on", "On", "led_on", true, false);  // with an ID, so that its label can be clicked
/// led.add("off", "Off", "led_off", false, false);
/// led.printHTML();
/// @endcode
class ORVGUI_EXPORT RadioButton : public FormComponent, public HTMLComponent {
public:
    /// `onClick` is printed between double quotes. `displayMode` points to a DisplayMode, which is
    /// not owned; null is editable.
    explicit RadioButton(const std::string& name, const std::string& value = "",
                         const std::string& form = "", const std::string& onClick = "",
                         const int* displayMode = nullptr, bool disabled = false)
        : FormComponent(name, value, form),
          m_checked(m_items.end()),
          m_onClick(onClick),
          m_displayMode(displayMode),
          m_disabled(disabled) {}
    RadioButton(const RadioButton&) = delete;
    RadioButton& operator=(const RadioButton&) = delete;

    /// Appends a button. When several are `checked`, the last one is. If `id` is not empty, a click
    /// on the label also checks the button.
    void add(const std::string& value, const std::string& label, const std::string& id,
             bool checked, bool disabled);

    /// As above, without an ID. With an ID, always give both flags: add("on", "On", "led_on", true)
    /// calls this form, with the ID converted to `checked`.
    void add(const std::string& value, const std::string& label, bool checked, bool disabled);

    /// The script that a click on any button runs; empty for none.
    const std::string& getOnClick() const { return m_onClick; }
    void setOnClick(const std::string& onClick) { m_onClick = onClick; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// Disables all buttons, in every display mode.
    bool isDisabled() const { return m_disabled; }
    void setDisabled(bool disabled) { m_disabled = disabled; }

    void printHTML() const override;
    bool isError() const override;

private:
    using Items = std::list<std::pair<const std::string, std::string>>;  // value, label

    void printItem(Items::const_iterator item, const std::string& id, bool disabled) const;

    Items m_items;
    std::list<std::string> m_ids;  // of each item, empty for none
    Items::const_iterator m_checked;
    std::list<bool> m_itemDisabled;
    std::string m_onClick;
    const int* m_displayMode;
    bool m_disabled;
};

}  // namespace ORVLib::Gui
