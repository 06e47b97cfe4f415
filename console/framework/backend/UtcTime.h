#pragma once

#include <string>

namespace Console {

/// "2030-12-31 23:59:59" for decimal seconds since 1970, in UTC. Any other text stays as it
/// is.
std::string utcTime(const std::string& seconds);

}  // namespace Console
