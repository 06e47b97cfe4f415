// The board's clock, set by hand or by time servers.

#include "framework/backend/UtcTime.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"

namespace Console {

namespace {

constexpr char MANUAL[] = "manual";
constexpr char SERVERS[] = "servers";
constexpr char SHOWN_FIELD[] = "shown_time";

/// All time zones that are in use.
constexpr const char* ZONES[] = {
    "-12:00", "-11:00", "-10:00", "-09:30", "-09:00", "-08:00", "-07:00", "-06:00",
    "-05:00", "-04:00", "-03:30", "-03:00", "-02:30", "-02:00", "-01:00", "+00:00",
    "+01:00", "+02:00", "+03:00", "+03:30", "+04:00", "+04:30", "+05:00", "+05:30",
    "+05:45", "+06:00", "+06:30", "+07:00", "+08:00", "+08:45", "+09:00", "+09:30",
    "+10:00", "+10:30", "+11:00", "+12:00", "+12:45", "+13:00", "+13:45", "+14:00"};

/// Date and time that the user leaves as they are set nothing: they are as old as the form. So
/// another time zone does not change the time, only what the clock shows.
class ClockPage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_CLOCK);

    explicit ClockPage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_CLOCK_PURPOSE, ITEM_CLOCK),
          m_date(add(TEXT_DATE, TEXT_WRONG_CLOCK_DATE, std::make_unique<DateInput>("date"))),
          m_time(add(TEXT_TIME, TEXT_WRONG_TIME, std::make_unique<TimeInput>("time"))),
          m_zone(add(TEXT_TIME_ZONE, TEXT_WRONG_CHOICE, std::make_unique<MenuInput>("zone"))),
          m_source(
              add(TEXT_CLOCK_SOURCE, TEXT_WRONG_CHOICE, std::make_unique<RadioInput>("source"))),
          m_firstServer(addServer(TEXT_FIRST_TIME_SERVER, "first_server")),
          m_shown(getField(SHOWN_FIELD)) {
        addServer(TEXT_SECOND_TIME_SERVER, "second_server");
        for (const char* const zone : ZONES) {
            m_zone.addOption(zone, std::string("UTC") + zone);
        }
        m_source.addOption(MANUAL, text(TEXT_SET_BY_HAND));
        m_source.addOption(SERVERS, text(TEXT_SET_BY_SERVERS));
    }

protected:
    void readCurrent() override {
        RecordPage::readCurrent();
        m_present = getEntered();
    }

    void carryMore() override {
        carry(SHOWN_FIELD, getEntered() == m_present ? m_present : m_shown);
    }

    /// The board keeps its time when date and time are empty.
    bool isNeeded(const Input& input) const override {
        return isTimeSet() || (&input != &m_date && &input != &m_time);
    }

    bool isKept(const Input& input) const override {
        return &input != &m_date && &input != &m_time;
    }

    void checkInputs() override {
        if (isSetByServers() && m_firstServer.isEmpty()) {
            mark(m_firstServer);
        }
    }

    std::string getConfirmation() override {
        if (isSetByServers()) {
            return RecordPage::getConfirmation();
        }
        return isTimeSet() ? text(TEXT_CONFIRM_CLOCK)
                           : text(TEXT_CONFIRM_CLOCK_KEPT) + ' ' + getTimeInZone();
    }

    /// The page that shows what was changed must not show a time that was not set.
    void apply() override {
        const bool isKept = !isSetByServers() && !isTimeSet();
        RecordPage::apply();
        if (isKept && !isRefused()) {
            const std::size_t blank = m_present.find(' ');
            m_date.setText(m_present.substr(0, blank));
            m_time.setText(m_present.substr(blank + 1));
        }
    }

private:
    bool isSetByServers() const { return m_source.getText() == SERVERS; }
    bool isTimeSet() const { return !isSetByServers() && getEntered() != m_shown; }

    std::string getEntered() const { return m_date.getText() + ' ' + m_time.getText(); }

    /// The present time in the zone that was chosen.
    std::string getTimeInZone() {
        const Record clock = readRecord(getRequester(), ITEM_CLOCK);
        RecordReader reader(clock);
        const std::string date = reader.next();
        const std::string time = date + ' ' + reader.next();
        return movedTime(time, reader.next(), m_zone.getText());
    }

    AddressInput& addServer(Text label, const char* name) {
        return add(label, TEXT_WRONG_ADDRESS, std::make_unique<AddressInput>(name, true));
    }

    DateInput& m_date;
    TimeInput& m_time;
    MenuInput& m_zone;
    RadioInput& m_source;
    AddressInput& m_firstServer;
    std::string m_shown;    ///< date and time that the sent form had at first
    std::string m_present;  ///< date and time now
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::ClockPage>>();
}
