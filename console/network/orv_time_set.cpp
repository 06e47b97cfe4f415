// The board's clock: set by hand, or by time servers.

#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"

namespace {

constexpr char MANUAL[] = "manual";
constexpr char SERVERS[] = "servers";

/// Every zone that is in use somewhere.
constexpr const char* ZONES[] = {
    "-12:00", "-11:00", "-10:00", "-09:30", "-09:00", "-08:00", "-07:00", "-06:00",
    "-05:00", "-04:00", "-03:30", "-03:00", "-02:30", "-02:00", "-01:00", "+00:00",
    "+01:00", "+02:00", "+03:00", "+03:30", "+04:00", "+04:30", "+05:00", "+05:30",
    "+05:45", "+06:00", "+06:30", "+07:00", "+08:00", "+08:45", "+09:00", "+09:30",
    "+10:00", "+10:30", "+11:00", "+12:00", "+12:45", "+13:00", "+13:45", "+14:00"};

class ClockPage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_CLOCK;

    explicit ClockPage(const Console::PageContext& context)
        : RecordPage(context, FUNCTION, Console::TEXT_CLOCK_PURPOSE, Console::ITEM_CLOCK),
          m_date(add(Console::TEXT_DATE, Console::TEXT_WRONG_CLOCK_DATE,
                     std::make_unique<Console::DateInput>("date"))),
          m_time(add(Console::TEXT_TIME, Console::TEXT_WRONG_TIME,
                     std::make_unique<Console::TimeInput>("time"))),
          m_zone(add(Console::TEXT_TIME_ZONE, Console::TEXT_WRONG_CHOICE,
                     std::make_unique<Console::MenuInput>("zone"))),
          m_source(add(Console::TEXT_CLOCK_SOURCE, Console::TEXT_WRONG_CHOICE,
                       std::make_unique<Console::RadioInput>("source"))),
          m_firstServer(addServer(Console::TEXT_FIRST_TIME_SERVER, "first_server")) {
        addServer(Console::TEXT_SECOND_TIME_SERVER, "second_server");
        for (const char* const zone : ZONES) {
            m_zone.addOption(zone, std::string("UTC") + zone);
        }
        m_source.addOption(MANUAL, text(Console::TEXT_SET_BY_HAND));
        m_source.addOption(SERVERS, text(Console::TEXT_SET_BY_SERVERS));
    }

protected:
    bool isNeeded(const Console::Input& input) const override {
        return !isSetByServers() || (&input != &m_date && &input != &m_time);
    }

    bool isKept(const Console::Input& input) const override {
        return &input != &m_date && &input != &m_time;
    }

    void checkInputs() override {
        if (isSetByServers() && m_firstServer.isEmpty()) {
            mark(m_firstServer);
        }
    }

    std::string getConfirmation() override {
        return isSetByServers() ? RecordPage::getConfirmation() : text(Console::TEXT_CONFIRM_CLOCK);
    }

private:
    bool isSetByServers() const { return m_source.getText() == SERVERS; }

    Console::AddressInput& addServer(Console::Text label, const char* name) {
        return add(label, Console::TEXT_WRONG_ADDRESS,
                   std::make_unique<Console::AddressInput>(name, true));
    }

    Console::DateInput& m_date;
    Console::TimeInput& m_time;
    Console::MenuInput& m_zone;
    Console::RadioInput& m_source;
    Console::AddressInput& m_firstServer;
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<ClockPage>>();
}
