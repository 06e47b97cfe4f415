#include "gui/CheckBox.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void CheckBox::add(const std::string& name, const std::string& value, const std::string& label,
                   const std::string& id, bool checked, bool disabled) {
    m_items.push_back(
        std::make_unique<CheckBoxData>(CheckBoxData{name, value, id, label, checked, disabled}));
}

void CheckBox::printHTML() const {
    for (const auto& box : m_items) {
        printBox(*box);
    }
}

void CheckBox::printBox(const CheckBoxData& box) const {
    Output output;
    if (&box != m_items.front().get()) {
        output.endLine();
    }
    printInputStart(output, "checkbox", box.name, box.value);
    if (!box.id.empty()) {
        output << " id=\"" << box.id << '"';
    }
    printEvent(output, "onClick", m_onClick, m_quoteScript);
    const bool disabled = m_disabled || box.disabled || !isEditable(m_displayMode);
    output << (box.checked ? " checked" : "") << (disabled ? " disabled" : "") << '>' << box.label;
    output.print();
}

bool CheckBox::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
