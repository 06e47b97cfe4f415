#include "component/Attributes.h"

#include <iostream>

#include "gui/MessageMgr.h"

namespace ORVLib::Gui {

std::string quoteEscaped(std::string value) {
    MessageMgr::convertStr(value, "\"", "&quot;");
    return value;
}

void printInputStart(const char* type, const std::string& name, const std::string& value) {
    std::cout << "<input type=\"" << type << "\" name=\"" << name << "\" value=\"" << value << '"';
}

void printEvent(const char* event, const std::string& script) {
    if (!script.empty()) {
        std::cout << ' ' << event << '=' << script;
    }
}

}  // namespace ORVLib::Gui
