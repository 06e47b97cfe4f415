// A program with pages for the tests of the page server.
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <iterator>

#include "gui/FormInfo.h"
#include "multicall/PageServer.h"
#include "multicall/Pages.h"

namespace ORVLib::MultiCall {

namespace {

using Gui::FormInfo;

// The environment, and then the body.
int echo(int /*argc*/, char** argv, char** environment) {
    std::cout << "Content-Type: text/plain\n\n" << argv[0] << '\n';
    for (; *environment != nullptr; ++environment) {
        std::cout << *environment << '\n';
    }
    std::cout << '\n' << std::cin.rdbuf();
    return 0;
}

int sleepLong(int /*argc*/, char** /*argv*/, char** /*environment*/) {
    std::cout << "begun" << std::endl;
    const FormInfo request;  // has stored an upload
    return static_cast<int>(sleep(20));
}

int sleepShort(int /*argc*/, char** /*argv*/, char** /*environment*/) {
    std::cout << "begun" << std::endl;
    usleep(300'000);
    std::cout << "ended" << std::endl;
    return 0;
}

// Prints without end.
int flood(int /*argc*/, char** /*argv*/, char** /*environment*/) {
    while (std::cout << std::string(65536, 'x')) {
    }
    return 1;
}

int crash(int /*argc*/, char** /*argv*/, char** /*environment*/) {
    if (std::cin.peek() != EOF) {
        std::raise(SIGTERM);
    }
    std::abort();
}

}  // namespace

const Page PAGES[] = {
    {"test/echo.cgi", echo, nullptr, nullptr, nullptr, nullptr},
    {"test/long.cgi", sleepLong, nullptr, nullptr, nullptr, nullptr},
    {"test/short.cgi", sleepShort, nullptr, nullptr, nullptr, nullptr},
    {"test/flood.cgi", flood, nullptr, nullptr, nullptr, nullptr},
    {"test/crash.cgi", crash, nullptr, nullptr, nullptr, nullptr},
};
const std::size_t PAGE_COUNT = std::size(PAGES);

}  // namespace ORVLib::MultiCall

int main(int argc, char** argv) {
    return ORVLib::MultiCall::servePages(argc, argv);
}
