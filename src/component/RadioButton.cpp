#include "gui/RadioButton.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void RadioButton::add(const std::string& value, const std::string& label, const std::string& id,
                      bool checked, bool disabled) {
    m_items.emplace_back(value, label);
    m_ids.push_back(id);
    m_itemDisabled.push_back(disabled);
    if (checked) {
        m_checked = std::prev(m_items.end());
    }
}

void RadioButton::add(const std::string& value, const std::string& label, bool checked,
                      bool disabled) {
    add(value, label, std::string(), checked, disabled);
}

void RadioButton::printHTML() const {
    auto id = m_ids.begin();
    auto itemDisabled = m_itemDisabled.begin();
    for (auto item = m_items.begin(); item != m_items.end(); ++item) {
        printItem(item, *id, m_disabled || *itemDisabled || !isEditable(m_displayMode));
        ++id;
        ++itemDisabled;
    }
}

void RadioButton::printItem(Items::const_iterator item, const std::string& id,
                            bool disabled) const {
    Output output;
    if (item != m_items.begin()) {
        output.endLine();
    }
    if (!id.empty()) {
        output << "<label for=\"" << id << "\">";
    }
    printInputStart(output, "radio", getName(), item->first);
    if (!id.empty()) {
        output << " id=\"" << id << '"';
    }
    printEvent(output, "onClick", m_onClick, true);
    output << (item == m_checked ? " checked" : "") << (disabled ? " disabled" : "") << '>'
           << item->second << (id.empty() ? "" : "</label>");
    output.print();
}

bool RadioButton::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
