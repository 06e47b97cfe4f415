// Takes one uploaded file, as a page that installs an image does, and reports its size.

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "gui/FormInfo.h"

int main() {
    ORVLib::Gui::FormInfo form;
    form.readSkipData();
    // Only where the files are compared, never where time is taken.
    if (const char* const kept = std::getenv("BENCH_KEEP")) {
        if (std::rename(form.getTemporaryFilePath().c_str(), kept) != 0) {
            return 1;
        }
    }
    std::cout << "Content-Type: text/plain\n\n"
              << form.getUploadedFileName() << ' ' << form.getWrittenSize() << '\n';
    return 0;
}
