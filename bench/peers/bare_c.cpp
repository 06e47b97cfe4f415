// The lower bound in C: a program that prints the bytes of a page and does nothing else. It is
// linked without the C++ library.

#include <cstdio>

constexpr char PAGE[] =
#include BENCH_PAGE
    ;

int main() {
    return std::fwrite(PAGE, 1, sizeof PAGE - 1, stdout) == sizeof PAGE - 1 ? 0 : 1;
}
