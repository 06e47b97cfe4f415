#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A time of day in three text boxes, named with the field's name followed by 0 (hour), 1 (minute)
/// and 2 (second).
///
/// The texts are checked and printed as they are. Check what came from a person first and escape it
/// afterwards; an escaped text would be checked as another one:
///
///     TimeField field("time", "", "", hour, minute, second);
///     field.checkTime();  // from now on isError() keeps the answer
///     for (std::string* text : {&hour, &minute, &second}) MessageMgr::convertHTML(*text);
///     field.setHour(hour), field.setMinute(minute), field.setSecond(second);
class ORVGUI_EXPORT TimeField : public FormComponent, public HTMLComponent {
public:
    /// `displayMode` is a DisplayMode, not owned; null is editable.
    explicit TimeField(const std::string& name, const std::string& value = "",
                       const std::string& form = "", const std::string& hour = "",
                       const std::string& minute = "", const std::string& second = "",
                       const int* displayMode = nullptr)
        : FormComponent(name, value, form),
          m_hour(hour),
          m_minute(minute),
          m_second(second),
          m_displayMode(displayMode) {}

    /// Marks the field invalid unless the texts are a time from 00:00:00 to 23:59:59. Each text
    /// counts as the number it starts with, 0 when it starts with none, so empty boxes are valid.
    void checkTime();

    /// The texts of the boxes.
    const std::string& getHour() const { return m_hour; }
    void setHour(const std::string& hour) { m_hour = hour; }
    const std::string& getMinute() const { return m_minute; }
    void setMinute(const std::string& minute) { m_minute = minute; }
    const std::string& getSecond() const { return m_second; }
    void setSecond(const std::string& second) { m_second = second; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    void printHTML() const override;

    /// What checkTime() found or setError() said.
    bool isError() const override;

    /// Marks the field invalid. False changes nothing: an error stays.
    void setError(bool error = true) { m_error = m_error || error; }

private:
    std::string m_hour;
    std::string m_minute;
    std::string m_second;
    const int* m_displayMode;
    bool m_error = false;
};

}  // namespace ORVLib::Gui
