// When a partition is switched on and off by itself.

#include "shared/page/ConsoleMain.h"
#include "shared/page/PartitionMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"

namespace {

class SchedulePage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_SCHEDULE;

    explicit SchedulePage(const Console::PageContext& context)
        : RecordPage(
              context, FUNCTION, Console::TEXT_SCHEDULE_PURPOSE,
              Console::ITEM_PARTITION_SCHEDULE + static_cast<unsigned int>(context.partition)),
          m_enabled(add(Console::TEXT_SCHEDULE_STATE, Console::TEXT_WRONG_CHOICE,
                        std::make_unique<Console::FlagInput>("enabled", text(Console::TEXT_ENABLED),
                                                             text(Console::TEXT_DISABLED)))),
          m_firstDay(add(Console::TEXT_FIRST_DAY, Console::TEXT_WRONG_DAY,
                         std::make_unique<Console::DateInput>("first_day"))),
          m_lastDay(add(Console::TEXT_LAST_DAY, Console::TEXT_WRONG_DAY,
                        std::make_unique<Console::DateInput>("last_day"))),
          m_weekdays(add(Console::TEXT_WEEKDAYS, Console::TEXT_NO_WEEKDAY,
                         std::make_unique<Console::ChecksInput>("weekday"))),
          m_onTime(addTime(Console::TEXT_POWER_ON_TIME, "on_time")),
          m_offTime(addTime(Console::TEXT_POWER_OFF_TIME, "off_time")) {
        for (int day = Console::TEXT_MONDAY; day <= Console::TEXT_SUNDAY; ++day) {
            m_weekdays.addBox(text(static_cast<Console::Text>(day)));
        }
    }

protected:
    void checkInputs() override {
        const bool areDates = !m_firstDay.isError() && !m_lastDay.isError();
        // Days compare as their texts do.
        if (areDates && m_firstDay.getText() > m_lastDay.getText()) {
            mark(m_lastDay, Console::TEXT_DAYS_REVERSED);
        }
        if (!m_enabled.isEmpty()) {
            checkIsComplete();
        }
    }

private:
    Console::TimeInput& addTime(Console::Text label, const char* name) {
        return add(label, Console::TEXT_WRONG_OPTIONAL_TIME,
                   std::make_unique<Console::TimeInput>(name, true));
    }

    void checkIsComplete() {
        if (m_weekdays.isEmpty()) {
            mark(m_weekdays);
        }
        if (m_onTime.isEmpty() && m_offTime.isEmpty()) {
            mark(m_onTime, Console::TEXT_NO_POWER_TIME);
        }
    }

    Console::FlagInput& m_enabled;
    Console::DateInput& m_firstDay;
    Console::DateInput& m_lastDay;
    Console::ChecksInput& m_weekdays;
    Console::TimeInput& m_onTime;
    Console::TimeInput& m_offTime;
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<SchedulePage, Console::PartitionMain>>();
}
