#include "multicall/Pages.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace ORVLib::MultiCall {

namespace {

const Page* runningPage = nullptr;

void destroyGlobals() {
    for (const Step* step = runningPage->destructorsEnd; step != runningPage->destructors;) {
        (*--step)(0, nullptr, nullptr);
    }
}

}  // namespace

const Page* findPage(std::string_view path) {
    const Page* const end = PAGES + PAGE_COUNT;
    const Page* const found = std::find_if(PAGES, end, [path](const Page& page) {
        const std::string_view own = page.path;
        return path == own ||
               (path.size() > own.size() && path.substr(path.size() - own.size()) == own &&
                path[path.size() - own.size() - 1] == '/');
    });
    return found != end ? found : nullptr;
}

int runPage(const Page& page, int argc, char** argv) {
    runningPage = &page;
    if (page.destructors != page.destructorsEnd) {
        std::atexit(destroyGlobals);
    }
    for (const Step* step = page.constructors; step != page.constructorsEnd; ++step) {
        (*step)(argc, argv, environ);
    }
    return page.main(argc, argv, environ);
}

}  // namespace ORVLib::MultiCall
