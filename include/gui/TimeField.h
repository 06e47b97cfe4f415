#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A time of day in three text boxes, named with the field's name followed by 0 (hour), 1 (minute)
/// and 2 (second).
///
/// The texts are checked and printed as they are, not escaped. So check user input first and escape
/// it afterwards; isError() keeps the result:
///
/// @code
/// std::string hour = "23", minute = "59", second = "<b>0";
/// TimeField field("time", "", "", hour, minute, second);
/// field.checkTime();
/// for (std::string* text : {&hour, &minute, &second}) MessageMgr::convertHTML(*text);
/// field.setHour(hour), field.setMinute(minute), field.setSecond(second);
/// @endcode
class ORVGUI_EXPORT TimeField : public FormComponent, public HTMLComponent {
public:
    /// `displayMode` points to a DisplayMode, which is not owned; null is editable.
    explicit TimeField(const std::string& name, const std::string& value = "",
                       const std::string& form = "", const std::string& hour = "",
                       const std::string& minute = "", const std::string& second = "",
                       const int* displayMode = nullptr)
        : FormComponent(name, value, form),
          m_hour(hour),
          m_minute(minute),
          m_second(second),
          m_displayMode(displayMode) {}

    /// Marks the field invalid unless the texts are a time from 00:00:00 to 23:59:59. Only the
    /// number at the start of each text counts, 0 if there is none, so empty boxes are valid;
    /// trailing characters are ignored.
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

    /// Whether checkTime() or setError() marked the field invalid.
    bool isError() const override;

    /// Marks the field invalid. False does not clear an error.
    void setError(bool error = true) { m_error = m_error || error; }

private:
    std::string m_hour;
    std::string m_minute;
    std::string m_second;
    const int* m_displayMode;
    bool m_error = false;
};

}  // namespace ORVLib::Gui
