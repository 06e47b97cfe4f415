// The floor: a C++ program that prints the bytes of a page and does nothing else.

#include <iostream>

constexpr char PAGE[] =
#include BENCH_PAGE
    ;

int main() {
    std::cout.write(PAGE, sizeof PAGE - 1);
    return 0;
}
