#include "gui/SelectMenu.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void SelectMenu::add(const std::string& value, const std::string& label, bool selected) {
    m_options.emplace_back(value, label);
    if (selected) {
        m_selected = static_cast<int>(m_options.size()) - 1;
    }
}

void SelectMenu::select(int index) {
    if (index >= 0 && static_cast<std::size_t>(index) < m_options.size()) {
        m_selected = index;
    }
}

void SelectMenu::setOnChangeFunction(std::string function, std::string arguments) {
    m_onChange = callAttribute("onChange", function, arguments);
}

void SelectMenu::setOnClickFunction(std::string function, std::string arguments) {
    m_onClick = callAttribute("onClick", function, arguments);
}

void SelectMenu::printHTML() const {
    if (m_options.empty()) {
        return;
    }
    Output output;
    output << "<select name=\"" << getName() << '"' << m_onChange << m_onClick;
    // A disabled menu on a read-only page gets the attributes twice. Browsers use the first.
    if (m_disabled) {
        printDisabled(output);
    }
    printDisabledUnlessEditable(output, m_displayMode);
    output << ">\n";
    int index = 0;
    for (const auto& [value, label] : m_options) {
        const char* const selected = index++ == m_selected ? " selected" : "";
        output << "<option value=\"" << value << '"' << selected << '>' << label;
        output.endLine();
    }
    output << "</select>";
    output.print();
}

bool SelectMenu::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
