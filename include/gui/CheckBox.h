#pragma once

#include <list>
#include <memory>

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A group of check boxes. Each box has a name and value of its own; the name and value of the
/// group are not printed. A group without boxes prints nothing.
///
/// Nothing is escaped: names, values, labels and IDs must be the page's own texts.
///
/// @code
/// CheckBox days("days");
/// days.add("monday", "1", "Monday", "", true);
/// days.add("tuesday", "1", "Tuesday");
/// days.printHTML();
/// @endcode
class ORVGUI_EXPORT CheckBox : public FormComponent, public HTMLComponent {
public:
    /// One box of the group.
    struct CheckBoxData {
        /// The arguments of add().
        std::string name;
        std::string value;
        std::string id;
        std::string label;
        bool checked;
        bool disabled;
    };

    /// `displayMode` points to a DisplayMode, which is not owned; null is editable.
    explicit CheckBox(const std::string& name, const std::string& value = "",
                      const std::string& form = "", const std::string& onClick = "",
                      bool quoteScript = false, const int* displayMode = nullptr,
                      bool disabled = false)
        : FormComponent(name, value, form),
          m_onClick(onClick),
          m_quoteScript(quoteScript),
          m_displayMode(displayMode),
          m_disabled(disabled) {}
    CheckBox(const CheckBox&) = delete;
    CheckBox& operator=(const CheckBox&) = delete;

    /// Appends a box. With an empty `id` no ID attribute is printed.
    void add(const std::string& name, const std::string& value, const std::string& label,
             const std::string& id = "", bool checked = false, bool disabled = false);

    /// The script that a click on any box runs.
    const std::string& getOnClick() const { return m_onClick; }
    void setOnClick(const std::string& onClick) { m_onClick = onClick; }

    /// Whether the script is printed between double quotes. If not, it must include its quotes.
    bool isQuoteScript() const { return m_quoteScript; }
    void setQuoteScript(bool quoteScript) { m_quoteScript = quoteScript; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// Disables all boxes, in every display mode.
    bool isDisabled() const { return m_disabled; }
    void setDisabled(bool disabled) { m_disabled = disabled; }

    void printHTML() const override;
    bool isError() const override;

private:
    void printBox(const CheckBoxData& box) const;

    std::list<std::unique_ptr<CheckBoxData>> m_items;
    std::string m_onClick;
    bool m_quoteScript;
    const int* m_displayMode;
    bool m_disabled;
};

}  // namespace ORVLib::Gui
