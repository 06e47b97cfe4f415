// When a partition is switched on and off by itself.

#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"

namespace Console {

namespace {

class SchedulePage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_SCHEDULE);

    explicit SchedulePage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_SCHEDULE_PURPOSE,
                     ITEM_PARTITION_SCHEDULE + static_cast<unsigned int>(context.partition)),
          m_enabled(
              add(TEXT_SCHEDULE_STATE, TEXT_WRONG_CHOICE,
                  std::make_unique<FlagInput>("enabled", text(TEXT_ENABLED), text(TEXT_DISABLED)))),
          m_firstDay(add(TEXT_FIRST_DAY, TEXT_WRONG_DAY, std::make_unique<DateInput>("first_day"))),
          m_lastDay(add(TEXT_LAST_DAY, TEXT_WRONG_DAY, std::make_unique<DateInput>("last_day"))),
          m_weekdays(add(TEXT_WEEKDAYS, TEXT_NO_WEEKDAY, std::make_unique<ChecksInput>("weekday"))),
          m_onTime(addTime(TEXT_POWER_ON_TIME, "on_time")),
          m_offTime(addTime(TEXT_POWER_OFF_TIME, "off_time")) {
        for (int day = TEXT_MONDAY; day <= TEXT_SUNDAY; ++day) {
            m_weekdays.addBox(text(static_cast<Text>(day)));
        }
    }

protected:
    void checkInputs() override {
        const bool areDates = !m_firstDay.isError() && !m_lastDay.isError();
        // Days compare as their texts do.
        if (areDates && m_firstDay.getText() > m_lastDay.getText()) {
            mark(m_lastDay, TEXT_DAYS_REVERSED);
        }
        if (!m_enabled.isEmpty()) {
            checkIsComplete();
        }
    }

private:
    TimeInput& addTime(Text label, const char* name) {
        return add(label, TEXT_WRONG_OPTIONAL_TIME, std::make_unique<TimeInput>(name, true));
    }

    void checkIsComplete() {
        if (m_weekdays.isEmpty()) {
            mark(m_weekdays);
        }
        if (m_onTime.isEmpty() && m_offTime.isEmpty()) {
            mark(m_onTime, TEXT_NO_POWER_TIME);
        }
    }

    FlagInput& m_enabled;
    DateInput& m_firstDay;
    DateInput& m_lastDay;
    ChecksInput& m_weekdays;
    TimeInput& m_onTime;
    TimeInput& m_offTime;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::SchedulePage>>();
}
