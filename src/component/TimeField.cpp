#include "gui/TimeField.h"

#include "base/Numbers.h"
#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

namespace {

constexpr int LAST_HOUR = 23;
constexpr int LAST_MINUTE = 59;
constexpr int LAST_SECOND = 59;

bool isUpTo(int last, const std::string& text) {
    const int number = Numbers::readInt(text.c_str());
    return number >= 0 && number <= last;
}

}  // namespace

void TimeField::checkTime() {
    setError(!isUpTo(LAST_HOUR, m_hour) || !isUpTo(LAST_MINUTE, m_minute) ||
             !isUpTo(LAST_SECOND, m_second));
}

void TimeField::printHTML() const {
    Output output;
    int number = 0;
    for (const std::string* const text : {&m_hour, &m_minute, &m_second}) {
        if (number > 0) {
            output << ':';
            output.endLine();
        }
        printBox(output, {3, 2, *text, number++}, getName(), "", m_displayMode);
    }
    output.print();
}

bool TimeField::isError() const {
    return m_error;
}

}  // namespace ORVLib::Gui
