// Prints a page with much in it: big_page.cgi menu OPTIONS, or big_page.cgi markers COUNT SKELETON
// for a skeleton with the markers m0, m1…

#include <cstdlib>
#include <string>

#include "gui/HTMLPage.h"
#include "gui/SelectMenu.h"
#include "gui/TextString.h"

using namespace ORVLib::Gui;

namespace {

void printMenu(int options) {
    SelectMenu menu("unit");
    for (int i = 0; i < options; ++i) {
        const std::string number = std::to_string(i);
        menu.add(number, "Unit " + number);
    }
    menu.printHTML();
}

void printMarkers(int count, const std::string& skeleton) {
    HTMLPage page(1);
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        HTMLMapUtil::insertIntoMap(page.getMap(), "m" + number, new TextString("Unit " + number));
    }
    page.getGenerator().setSkeletonFileName(skeleton);
    page.getGenerator().printHTML();
}

}  // namespace

int main(int argc, char** argv) {
    const std::string part = argc > 2 ? argv[1] : "";
    if (part == "menu") {
        printMenu(std::atoi(argv[2]));
    } else if (part == "markers" && argc > 3) {
        printMarkers(std::atoi(argv[2]), argv[3]);
    } else {
        return 2;
    }
    return 0;
}
