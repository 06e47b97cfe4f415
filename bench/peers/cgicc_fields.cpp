// The long form with GNU cgicc.

#include <cgicc/Cgicc.h>

#include <iostream>

#include "tools/FieldSum.h"

int main() {
    const cgicc::Cgicc cgi;
    Bench::FieldSum sum;
    for (const cgicc::FormEntry& field : cgi.getElements()) {
        sum.add(field.getName(), field.getValue());
    }
    std::cout << "Content-Type: text/plain\n\n" << sum.getCount() << ' ' << sum.getSum() << '\n';
    return 0;
}
