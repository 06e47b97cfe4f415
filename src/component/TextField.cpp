#include "gui/TextField.h"

#include <algorithm>

#include "base/Output.h"
#include "component/Attributes.h"
#include "component/Validation.h"

namespace ORVLib::Gui {

void TextField::printHTML() const {
    Output output;
    output << "<input type=\"text\"";
    printDisabledUnlessEditable(output, m_displayMode);
    printSizes(output, m_size, m_maxLength);
    output << " name=\"" << getName() << "\" value=\"";
    printQuoteEscaped(output, getValue());
    output << "\">";
    output.print();
}

bool TextField::isError() const {
    const std::string& value = getValue();
    if (isLongerThan(value, m_maxLength)) {
        return true;
    }
    const int lowest = m_allowBlank ? BLANK_ASCII_HALF_ALPHANUM : START_ASCII_HALF_ALPHANUM;
    const auto isPrintable = [lowest](unsigned char byte) {
        return byte >= lowest && byte <= END_ASCII_HALF_ALPHANUM;
    };
    if (m_checkCharacters && !std::all_of(value.begin(), value.end(), isPrintable)) {
        return true;
    }
    return value.empty() && !m_allowEmpty;
}

}  // namespace ORVLib::Gui
