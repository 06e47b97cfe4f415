// The floor for uploads: standard input to a temporary file, 64 KiB at a time.

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace {

char block[0x10000];

/// Copies to the end; returns the bytes copied, or -1.
long long copyTo(int file) {
    long long total = 0;
    ssize_t length = 0;
    while ((length = read(STDIN_FILENO, block, sizeof block)) > 0) {
        if (write(file, block, static_cast<size_t>(length)) != length) {
            return -1;
        }
        total += length;
    }
    return length == 0 ? total : -1;
}

}  // namespace

int main() {
    char path[] = "/var/tmp/copy_XXXXXX";
    const int file = mkstemp(path);
    const long long size = file < 0 ? -1 : copyTo(file);
    if (size < 0 || close(file) != 0) {
        return 1;
    }
    const char* const kept = std::getenv("BENCH_KEEP");
    if ((kept != nullptr ? std::rename(path, kept) : std::remove(path)) != 0) {
        return 1;
    }
    std::cout << "Content-Type: text/plain\n\n" << size << '\n';
    return 0;
}
