// The main() of a console's program: runs the page that it is started as, or the page server.

#include <sys/auxv.h>
#include <unistd.h>

#include <climits>
#include <string>

#include "common/FileIo.h"
#include "multicall/PageServer.h"
#include "multicall/Pages.h"

using namespace ORVLib::MultiCall;

namespace {

constexpr int USAGE_STATUS = 2;
constexpr std::string_view SERVER_NAME = "orvguid";

/// The path that the kernel was given. Unlike argv[0], every web server passes it in full.
std::string_view startedPath(char** argv) {
    const auto path = reinterpret_cast<const char*>(getauxval(AT_EXECFN));  // NOLINT
    return path != nullptr ? path : argv[0] != nullptr ? argv[0] : "";
}

/// The full path of the program, for one that was started by a relative path.
std::string fullPath() {
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return {path, length > 0 ? static_cast<std::size_t>(length) : 0};
}

int refuse(std::string_view path) {
    std::string line = "no page of this console is at ";
    line.append(path).append(": start it by the path of one of these pages\n");
    for (const Page* page = PAGES; page != PAGES + PAGE_COUNT; ++page) {
        line.append("  ").append(page->path).append("\n");
    }
    ORVLib::writeAll(STDERR_FILENO, line);
    return USAGE_STATUS;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view path = startedPath(argv);
    if (path.substr(path.rfind('/') + 1) == SERVER_NAME) {
        return servePages(argc, argv);
    }
    const Page* page = findPage(path);
    if (page == nullptr) {
        page = findPage(fullPath());
    }
    return page != nullptr ? runPage(*page, argc, argv) : refuse(path);
}
