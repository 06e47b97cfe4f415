#include "gui/DateField.h"

#include "base/Numbers.h"
#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

namespace {

constexpr int FIRST_YEAR = 2000;
constexpr int MONTHS = 12;
constexpr int FEBRUARY = 2;
constexpr int DAYS_OF_MONTH[MONTHS] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

bool isLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// `month` is 1 to 12.
int daysOf(int year, int month) {
    return month == FEBRUARY && isLeapYear(year) ? 29 : DAYS_OF_MONTH[month - 1];
}

bool isDate(int year, int month, int day) {
    return year >= FIRST_YEAR && month >= 1 && month <= MONTHS && day >= 1 &&
           day <= daysOf(year, month);
}

}  // namespace

void DateField::checkDate() {
    setError(!isDate(Numbers::readInt(m_year.c_str()), Numbers::readInt(m_month.c_str()),
                     Numbers::readInt(m_day.c_str())));
}

void DateField::setOnFocusFunction(std::string function, std::string arguments) {
    m_onFocus = callAttribute("onFocus", function, arguments);
}

void DateField::printHTML() const {
    Output output;
    printBox(output, {5, 4, m_year, 0}, getName(), m_onFocus, m_displayMode);
    output << '-';
    printBox(output, {3, 2, m_month, 1}, getName(), m_onFocus, m_displayMode);
    output << '-';
    printBox(output, {3, 2, m_day, 2}, getName(), m_onFocus, m_displayMode);
    output.endLine();
    output.print();
}

bool DateField::isError() const {
    return m_error;
}

}  // namespace ORVLib::Gui
