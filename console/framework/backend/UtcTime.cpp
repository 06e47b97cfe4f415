#include "framework/backend/UtcTime.h"

#include <algorithm>
#include <ctime>

namespace Console {

namespace {

constexpr char TIME_FORMAT[] = "%Y-%m-%d %H:%M:%S";
constexpr long long LAST_SECOND = 2145916799;  // the last of 2037

/// Seconds by which a zone "+HH:MM" or "-HH:MM" is ahead of UTC.
int secondsOf(const std::string& zone) {
    constexpr int SECONDS_PER_MINUTE = 60;
    constexpr int MINUTES_PER_HOUR = 60;
    std::tm parts{};
    if (zone.empty() || strptime(zone.c_str() + 1, "%H:%M", &parts) == nullptr) {
        return 0;
    }
    const int seconds = (parts.tm_hour * MINUTES_PER_HOUR + parts.tm_min) * SECONDS_PER_MINUTE;
    return zone.front() == '-' ? -seconds : seconds;
}

}  // namespace

std::string utcTime(const std::string& seconds) {
    // Ten digits last until 2286.
    constexpr std::size_t MOST_DIGITS = 10;
    if (seconds.empty() || seconds.size() > MOST_DIGITS ||
        seconds.find_first_not_of("0123456789") != std::string::npos) {
        return seconds;
    }
    const long long count = std::stoll(seconds);
    const auto time = static_cast<std::time_t>(count);
    if (time != count) {  // later than a time_t of 32 bits lasts
        return seconds;
    }
    std::tm parts{};
    char text[sizeof "2030-12-31 23:59:59"];
    if (gmtime_r(&time, &parts) == nullptr ||
        std::strftime(text, sizeof text, TIME_FORMAT, &parts) == 0) {
        return seconds;
    }
    return text;
}

std::string movedTime(const std::string& time, const std::string& from, const std::string& to) {
    std::tm parts{};
    const char* const end = strptime(time.c_str(), TIME_FORMAT, &parts);
    if (end == nullptr || *end != '\0') {
        return time;
    }
    const long long moved =
        static_cast<long long>(timegm(&parts)) + secondsOf(to) - secondsOf(from);
    return utcTime(std::to_string(std::clamp(moved, 0LL, LAST_SECOND)));
}

}  // namespace Console
