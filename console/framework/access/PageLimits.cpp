#include "framework/access/PageLimits.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <string>
#include <string_view>

#include "common/FileIo.h"
#include "framework/access/Module.h"
#include "framework/backend/Environment.h"

namespace Console {

namespace {

// A page without uploads has some hundred kilobytes of data when it starts.
constexpr rlim_t MOST_MEMORY = rlim_t{64} * 1024 * 1024;
constexpr rlim_t MOST_SECONDS = 10;
constexpr rlim_t SECONDS_TO_END = 2;

constexpr unsigned int ORDINARY_PLACES = 128;
constexpr unsigned int PLACES_OF_AN_ADDRESS = 96;
constexpr unsigned int RESERVED_PLACES = 64;

constexpr std::string_view OVER_TIME_LINE =
    "level=0 1/2/0 the page was ended: it needed too much processor time\n";

// The headers are those of every error page.
constexpr std::string_view OVER_TIME_PAGE =
    "Status: 500 Internal Server Error\n"
    "Content-Type: text/html; charset=utf-8\n"
    "Cache-Control: no-store\n"
    "X-Content-Type-Options: nosniff\n"
    "Referrer-Policy: same-origin\n"
    "Content-Security-Policy: default-src 'self'; object-src 'none'; base-uri 'none';"
    " form-action 'none'; frame-ancestors 'self'\n"
    "\n"
    "<!DOCTYPE html>\n<html>\n<head>\n<title>Error</title>\n"
    "<link rel=\"stylesheet\" href=\"/default.css\">\n</head>\n<body>\n"
    "<main class=\"notice\" role=\"alert\">\n<h1>Error</h1>\n"
    "<p class=\"err_string\">The request took too much processor time and was ended.</p>\n"
    "<p><a href=\"/common/frame.cgi\" target=\"_top\">Overview</a></p>\n"
    "<p class=\"err_string\" lang=\"ja\">処理時間が上限を超えたため、要求を中止しました。</p>\n"
    "<p lang=\"ja\"><a href=\"/common/frame.cgi\" target=\"_top\">トップ画面</a></p>\n"
    "</main>\n</body>\n</html>\n";

volatile std::sig_atomic_t isPageBegun = 0;

// Calls only functions that are allowed in a signal handler. Ends the process by SIGTERM in place
// of SIGXCPU, so that the library deletes the uploaded file and no core file is written.
extern "C" void endOverTime(int /*signal*/) {
    ORVLib::writeAll(STDERR_FILENO, OVER_TIME_LINE);
    if (isPageBegun == 0) {
        ORVLib::writeAll(STDOUT_FILENO, OVER_TIME_PAGE);
    }
    std::raise(SIGTERM);
}

template <typename Resource>
void lowerLimit(Resource resource, rlim_t most, rlim_t margin) {
    rlimit limit{};
    if (getrlimit(resource, &limit) == 0 && limit.rlim_cur > most) {
        limit.rlim_cur = most;
        limit.rlim_max = limit.rlim_max < most + margin ? limit.rlim_max : most + margin;
        setrlimit(resource, &limit);
    }
}

bool lock(int descriptor, unsigned int place) {
    struct flock wanted {};
    wanted.l_type = F_WRLCK;
    wanted.l_whence = SEEK_SET;
    wanted.l_start = static_cast<off_t>(place);
    wanted.l_len = 1;
    return fcntl(descriptor, F_SETLK, &wanted) == 0;
}

/// Places of a range, from `first` on, in a circle.
struct Choice {
    unsigned int first;
    unsigned int count;
};

/// Locks one of the chosen places of the range that begins at `begin`. Returns false when none is
/// free. Processes try the places in different orders, so that most find a free one at once.
bool lockOne(int descriptor, unsigned int begin, unsigned int size, const Choice& choice) {
    const auto process = static_cast<unsigned int>(getpid());
    for (unsigned int tried = 0; tried < choice.count; ++tried) {
        const unsigned int step = (process + tried) % choice.count;
        if (lock(descriptor, begin + (choice.first + step) % size)) {
            return true;
        }
    }
    return false;
}

}  // namespace

void limitResources() {
#ifndef __SANITIZE_ADDRESS__  // its own memory is without measure
    lowerLimit(RLIMIT_DATA, MOST_MEMORY, 0);
#endif
    std::signal(SIGXCPU, endOverTime);
    lowerLimit(RLIMIT_CPU, MOST_SECONDS, SECONDS_TO_END);
}

void notePageBegun() {
    isPageBegun = 1;
}

bool takePlace(Places places) {
    const std::string path = variable("ORV_PAGE_PLACES");
    if (path.empty()) {
        return true;
    }
    // Not closed: the lock ends with the process.
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0) {
        logError(Module::REQUEST, "cannot open ORV_PAGE_PLACES " + path +
                                      ": give a file that pages may write, or unset it");
        return true;
    }
    if (places == Places::RESERVED) {
        return lockOne(descriptor, ORDINARY_PLACES, RESERVED_PLACES, {0, RESERVED_PLACES});
    }
    // Each address has its own choice of the places, so that no other address can take all of them.
    const std::size_t choice = std::hash<std::string>()(variable("REMOTE_ADDR")) % ORDINARY_PLACES;
    return lockOne(descriptor, 0, ORDINARY_PLACES,
                   {static_cast<unsigned int>(choice), PLACES_OF_AN_ADDRESS});
}

}  // namespace Console
