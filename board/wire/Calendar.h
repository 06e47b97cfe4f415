#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// Days, times and zones as texts, in UTC, without leap seconds. The machine's own zone is not
/// used.
namespace ORVLib::Board {

constexpr int SECONDS_PER_DAY = 86400;

constexpr int LAST_DAY = 24836;  ///< 2037-12-31

/// The number of a day "YYYY-MM-DD", from 0 for 1970-01-01 to LAST_DAY.
std::optional<int> parseDay(const std::string& text);

/// "YYYY-MM-DD". REQUIRES: 0 <= day <= LAST_DAY.
std::string formatDay(std::int64_t day);

/// Seconds of the day "HH:MM:SS".
std::optional<int> parseTime(const std::string& text);

/// "HH:MM:SS". REQUIRES: 0 <= second < SECONDS_PER_DAY.
std::string formatTime(int second);

/// Seconds by which a zone "+HH:MM" or "-HH:MM" is ahead of UTC; at most 14 hours either way.
std::optional<int> parseZone(const std::string& text);

}  // namespace ORVLib::Board
