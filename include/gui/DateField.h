#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A date in three text boxes, named with the field's name followed by 0 (year), 1 (month) and 2
/// (day).
///
/// The texts are checked and printed as they are, not escaped. So check user input first and escape
/// it afterwards; isError() keeps the result:
///
/// @code
/// std::string year = "2030", month = "12", day = "<b>31";
/// DateField field("date", "", "", year, month, day);
/// field.checkDate();
/// for (std::string* text : {&year, &month, &day}) MessageMgr::convertHTML(*text);
/// field.setYear(year), field.setMonth(month), field.setDay(day);
/// @endcode
class ORVGUI_EXPORT DateField : public FormComponent, public HTMLComponent {
public:
    /// `displayMode` points to a DisplayMode, which is not owned; null is editable.
    explicit DateField(const std::string& name, const std::string& value = "",
                       const std::string& form = "", const std::string& year = "",
                       const std::string& month = "", const std::string& day = "",
                       const int* displayMode = nullptr)
        : FormComponent(name, value, form),
          m_year(year),
          m_month(month),
          m_day(day),
          m_displayMode(displayMode) {}

    /// Marks the field invalid unless the texts are a date from 2000 on. Only the number at the
    /// start of each text counts, 0 if there is none; trailing characters are ignored.
    void checkDate();

    /// Calls the script `function`(`arguments`) when a box gets the focus. Nothing is escaped, and
    /// the attribute is in double quotes: use single quotes in the arguments.
    void setOnFocusFunction(std::string function, std::string arguments);

    /// The texts of the boxes.
    const std::string& getYear() const { return m_year; }
    void setYear(const std::string& year) { m_year = year; }
    const std::string& getMonth() const { return m_month; }
    void setMonth(const std::string& month) { m_month = month; }
    const std::string& getDay() const { return m_day; }
    void setDay(const std::string& day) { m_day = day; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    void printHTML() const override;

    /// Whether checkDate() or setError() marked the field invalid.
    bool isError() const override;

    /// Marks the field invalid. False does not clear an error.
    void setError(bool error = true) { m_error = m_error || error; }

private:
    std::string m_year;
    std::string m_month;
    std::string m_day;
    const int* m_displayMode;
    bool m_error = false;
    std::string m_onFocus;
};

}  // namespace ORVLib::Gui
