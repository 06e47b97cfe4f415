#include "framework/access/CrossSite.h"

#include <algorithm>
#include <string>

#include "framework/backend/Environment.h"

namespace Console {

namespace {

/// A host and port without the final dot of the host: web servers remove the dot, browsers do not.
std::string withoutFinalDot(std::string host) {
    const std::size_t end = std::min(host.rfind(':'), host.size());
    if (end > 0 && host[end - 1] == '.') {
        host.erase(end - 1, 1);
    }
    return host;
}

/// The host and port of an origin. The origin "null", which a browser sends to hide one, has none.
std::string hostOf(const std::string& origin) {
    constexpr char SEPARATOR[] = "://";
    const std::size_t end = origin.find(SEPARATOR);
    return end == std::string::npos ? ""
                                    : withoutFinalDot(origin.substr(end + sizeof SEPARATOR - 1));
}

}  // namespace

bool isCrossSitePost() {
    if (variable("REQUEST_METHOD") != "POST") {
        return false;
    }
    // Another port of this host is the same site, but another origin.
    const std::string site = variable("HTTP_SEC_FETCH_SITE");
    const bool isFromOtherSite = !site.empty() && site != "same-origin" && site != "none";
    const std::string origin = variable("HTTP_ORIGIN");
    const bool isFromOtherHost =
        !origin.empty() && hostOf(origin) != withoutFinalDot(variable("HTTP_HOST"));
    return isFromOtherSite || isFromOtherHost;
}

}  // namespace Console
