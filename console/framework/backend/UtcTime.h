#pragma once

#include <string>

namespace Console {

/// "2030-12-31 23:59:59" for decimal seconds since 1970, in UTC. Any other text stays as it
/// is.
std::string utcTime(const std::string& seconds);

/// "2030-12-31 23:59:59" in one zone, such as "+09:00", as the time in another one; not before 1970
/// and not after 2037. A text in another format stays as it is.
std::string movedTime(const std::string& time, const std::string& from, const std::string& to);

}  // namespace Console
