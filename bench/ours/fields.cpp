// Reads a long URL-encoded form and looks at every field once.

#include <iostream>

#include "gui/FormInfo.h"
#include "tools/FieldSum.h"

int main() {
    const ORVLib::Gui::FormInfo form;
    Bench::FieldSum sum;
    for (const auto& [name, value] : form.getFields()) {
        sum.add(name, value);
    }
    std::cout << "Content-Type: text/plain\n\n" << sum.getCount() << ' ' << sum.getSum() << '\n';
    return 0;
}
