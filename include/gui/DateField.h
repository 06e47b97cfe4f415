#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A date in three text boxes, named with the field's name followed by 0 (year), 1 (month) and 2
/// (day).
///
/// The texts are checked and printed as they are. Check what came from a person first and escape it
/// afterwards; an escaped text would be checked as another one:
///
///     DateField field("date", "", "", year, month, day);
///     field.checkDate();  // from now on isError() keeps the answer
///     for (std::string* text : {&year, &month, &day}) MessageMgr::convertHTML(*text);
///     field.setYear(year), field.setMonth(month), field.setDay(day);
class ORVGUI_EXPORT DateField : public FormComponent, public HTMLComponent {
public:
    /// `displayMode` is a DisplayMode, not owned; null is editable.
    explicit DateField(const std::string& name, const std::string& value = "",
                       const std::string& form = "", const std::string& year = "",
                       const std::string& month = "", const std::string& day = "",
                       const int* displayMode = nullptr)
        : FormComponent(name, value, form),
          m_year(year),
          m_month(month),
          m_day(day),
          m_displayMode(displayMode) {}

    /// Marks the field invalid unless the texts are a date from 2000 on. Each text counts as the
    /// number it starts with, 0 when it starts with none; what follows the number is ignored.
    void checkDate();

    /// Calls `function`(`arguments`) when a box gets the focus. Nothing is escaped; use single
    /// quotes in it.
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

    /// What checkDate() found or setError() said.
    bool isError() const override;

    /// Marks the field invalid. False changes nothing: an error stays.
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
