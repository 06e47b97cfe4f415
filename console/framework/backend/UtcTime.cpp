#include "framework/backend/UtcTime.h"

#include <ctime>

namespace Console {

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
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts) == 0) {
        return seconds;
    }
    return text;
}

}  // namespace Console
