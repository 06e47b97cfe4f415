#include "wire/Calendar.h"

#include <ctime>

#include "common/ParseNumber.h"

namespace ORVLib::Board {

namespace {

constexpr int FIRST_YEAR = 1970;
constexpr int LAST_YEAR = 2037;
constexpr int MAX_ZONE_HOURS = 14;

std::tm toParts(std::time_t time) {
    std::tm parts{};
    ::gmtime_r(&time, &parts);
    return parts;
}

// True when the text has a digit wherever the shape has '0', and otherwise the shape's characters.
bool hasShape(const std::string& text, const std::string& shape) {
    if (text.size() != shape.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (shape[i] == '0' ? !isDigit : text[i] != shape[i]) {
            return false;
        }
    }
    return true;
}

std::optional<int> readPart(const std::string& text, std::size_t offset, std::size_t size,
                            int lowest, int highest) {
    return parseNumber(std::string_view(text).substr(offset, size), lowest, highest);
}

// Minutes of the day "HH:MM".
std::optional<int> parseMinutes(const std::string& text) {
    if (!hasShape(text, "00:00")) {
        return std::nullopt;
    }
    const auto hours = readPart(text, 0, 2, 0, 23);
    const auto minutes = readPart(text, 3, 2, 0, 59);
    return hours && minutes ? std::optional<int>(*hours * 60 + *minutes) : std::nullopt;
}

}  // namespace

std::optional<int> parseDay(const std::string& text) {
    if (!hasShape(text, "0000-00-00")) {
        return std::nullopt;
    }
    const auto year = readPart(text, 0, 4, FIRST_YEAR, LAST_YEAR);
    const auto month = readPart(text, 5, 2, 1, 12);
    const auto dayOfMonth = readPart(text, 8, 2, 1, 31);
    if (!year || !month || !dayOfMonth) {
        return std::nullopt;
    }
    std::tm parts{};
    parts.tm_year = *year - 1900;
    parts.tm_mon = *month - 1;
    parts.tm_mday = *dayOfMonth;
    const std::time_t time = ::timegm(&parts);
    if (parts.tm_mday != *dayOfMonth) {  // the month has fewer days
        return std::nullopt;
    }
    return static_cast<int>(time / SECONDS_PER_DAY);
}

std::string formatDay(std::int64_t day) {
    const std::tm parts = toParts(static_cast<std::time_t>(day * SECONDS_PER_DAY));
    char text[sizeof "2037-12-31"];
    std::strftime(text, sizeof text, "%Y-%m-%d", &parts);
    return text;
}

std::optional<int> parseTime(const std::string& text) {
    if (!hasShape(text, "00:00:00")) {
        return std::nullopt;
    }
    const auto minutes = parseMinutes(text.substr(0, 5));
    const auto seconds = readPart(text, 6, 2, 0, 59);
    return minutes && seconds ? std::optional<int>(*minutes * 60 + *seconds) : std::nullopt;
}

std::string formatTime(int second) {
    const std::tm parts = toParts(second);
    char text[sizeof "23:59:59"];
    std::strftime(text, sizeof text, "%H:%M:%S", &parts);
    return text;
}

std::optional<int> parseZone(const std::string& text) {
    const auto minutes = text.empty() ? std::nullopt : parseMinutes(text.substr(1));
    if (!minutes || (text[0] != '+' && text[0] != '-') || *minutes > MAX_ZONE_HOURS * 60) {
        return std::nullopt;
    }
    return (text[0] == '-' ? -60 : 60) * *minutes;
}

}  // namespace ORVLib::Board
