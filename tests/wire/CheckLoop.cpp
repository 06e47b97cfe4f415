// Checks a session again and again, as many pages at once would: CheckLoop SESSION COUNT
// Writes a byte to standard output when half is done. Fails on the first check that fails.

#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "gui/CGIRequester.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    const long count = std::strtol(argv[2], nullptr, 10);
    ORVLib::Gui::CGIRequester requester(argv[1]);
    for (long i = 0; i < count; ++i) {
        int language = 0;
        unsigned int interval = 0;
        if (requester.checkSession(language, interval, nullptr, false) == 0) {
            std::cerr << "check " << i << " failed: error " << requester.getErrorDetail() << '\n';
            return 1;
        }
        if (i == count / 2 && write(STDOUT_FILENO, ".", 1) != 1) {
            return 1;
        }
    }
    return 0;
}
