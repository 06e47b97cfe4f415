// The upload page with GNU cgicc, which holds the body in memory.

#include <cgicc/Cgicc.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

int main() {
    const cgicc::Cgicc cgi;
    const auto file = cgi.getFile("file");
    if (file == cgi.getFiles().end()) {
        return 1;
    }
    const std::string path = "/var/tmp/cgicc_" + std::to_string(getpid());
    std::ofstream out(path, std::ios::binary);
    file->writeToStream(out);
    out.close();
    const char* const kept = std::getenv("BENCH_KEEP");
    if (!out ||
        (kept != nullptr ? std::rename(path.c_str(), kept) : std::remove(path.c_str())) != 0) {
        return 1;
    }
    std::cout << "Content-Type: text/plain\n\n"
              << file->getFilename() << ' ' << file->getDataLength() << '\n';
    return 0;
}
