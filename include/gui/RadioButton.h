#pragma once

#include <list>
#include <utility>

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A group of radio buttons under one name, of which at most one is checked. Without buttons
/// nothing is printed.
///
/// Nothing is escaped: values, labels and IDs are the page's own texts.
class ORVGUI_EXPORT RadioButton : public FormComponent, public HTMLComponent {
public:
    /// `onClick` is printed between double quotes. `displayMode` is a DisplayMode, not owned; null
    /// is editable.
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

    /// Appends a button; of several that are `checked`, the last one counts. A click on the label
    /// of a button with an ID checks it.
    void add(const std::string& value, const std::string& label, const std::string& id,
             bool checked, bool disabled);

    /// The same without an ID. Four arguments always mean this form: give both flags with an ID,
    /// or it passes for `checked`.
    void add(const std::string& value, const std::string& label, bool checked, bool disabled);

    /// The script that a click on any button runs.
    const std::string& getOnClick() const { return m_onClick; }
    void setOnClick(const std::string& onClick) { m_onClick = onClick; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// Disables all buttons.
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
