#include "wire/Calendar.h"

#include <cstdio>

#include "common/ParseNumber.h"

namespace ORVLib::Board {

namespace {

constexpr int FIRST_YEAR = 1970;
constexpr int LAST_YEAR = 2037;
constexpr int MAX_ZONE_HOURS = 14;

struct Date {
    int year;
    int month;
    int day;
};

bool isLeap(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int countDays(int year) {
    return isLeap(year) ? 366 : 365;
}

int countDays(int year, int month) {
    constexpr int DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeap(year) ? 29 : DAYS[month - 1];
}

// True when the text has the shape: a digit at every '0', and any other character as it is.
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
    if (!year || !month) {
        return std::nullopt;
    }
    const auto dayOfMonth = readPart(text, 8, 2, 1, countDays(*year, *month));
    if (!dayOfMonth) {
        return std::nullopt;
    }
    int day = *dayOfMonth - 1;
    for (int before = FIRST_YEAR; before < *year; ++before) {
        day += countDays(before);
    }
    for (int before = 1; before < *month; ++before) {
        day += countDays(*year, before);
    }
    return day;
}

std::string formatDay(std::int64_t day) {
    Date date{FIRST_YEAR, 1, 1};
    for (; day >= countDays(date.year); ++date.year) {
        day -= countDays(date.year);
    }
    for (; day >= countDays(date.year, date.month); ++date.month) {
        day -= countDays(date.year, date.month);
    }
    date.day += static_cast<int>(day);
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", date.year, date.month, date.day);
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
    char text[48];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", second / 3600, second / 60 % 60,
                  second % 60);
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
