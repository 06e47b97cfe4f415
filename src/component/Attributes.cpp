#include "component/Attributes.h"

#include "gui/DisplayMode.h"
#include "gui/MessageMgr.h"

namespace ORVLib::Gui {

namespace {

constexpr char QUOTE_ENTITY[] = "&quot;";

}  // namespace

bool isEditable(const int* displayMode) {
    return displayMode == nullptr || *displayMode == EDIT_MODE;
}

bool isCarried(const int* displayMode) {
    return displayMode != nullptr && *displayMode == CONFIRM_MODE;
}

std::string quoteEscaped(std::string value) {
    MessageMgr::convertStr(value, "\"", QUOTE_ENTITY);
    return value;
}

void printQuoteEscaped(Output& output, std::string_view value) {
    std::size_t quote = value.find('"');
    while (quote != std::string_view::npos) {
        output << value.substr(0, quote) << QUOTE_ENTITY;
        value.remove_prefix(quote + 1);
        quote = value.find('"');
    }
    output << value;
}

std::string callAttribute(const char* event, const std::string& function,
                          const std::string& arguments) {
    std::string attribute = " ";
    attribute.append(event).append("=\"");
    attribute.append(function).append("(").append(arguments).append(");\"");
    return attribute;
}

void printInputStart(Output& output, const char* type, const std::string& name,
                     const std::string& value) {
    output << "<input type=\"" << type << "\" name=\"" << name << "\" value=\"" << value << '"';
}

void printEvent(Output& output, const char* event, const std::string& script, bool quoted) {
    if (!script.empty()) {
        const char* const quote = quoted ? "\"" : "";
        output << ' ' << event << '=' << quote << script << quote;
    }
}

void printSizes(Output& output, int size, int maxLength) {
    output << " size=\"" << size << "\" maxlength=\"" << maxLength << '"';
}

void printNumberedValue(Output& output, const std::string& value, const std::string& name,
                        int number) {
    output << " value=\"" << value << "\" name=\"" << name << number << '"';
}

void printBoxStart(Output& output, const NumberedBox& box, const std::string& name) {
    output << "<input type=\"text\"";
    printSizes(output, box.size, box.maxLength);
    output << box.style;
    printNumberedValue(output, box.value, name, box.number);
}

void printBox(Output& output, const NumberedBox& box, const std::string& name,
              const std::string& onFocus, const int* displayMode) {
    printBoxStart(output, box, name);
    output << ' ' << onFocus;
    printDisabledUnlessEditable(output, displayMode);
    output << '>';
}

void printDisabled(Output& output) {
    output << " class=\"disabled\" disabled";
}

void printDisabledUnlessEditable(Output& output, const int* displayMode) {
    if (!isEditable(displayMode)) {
        printDisabled(output);
    }
}

}  // namespace ORVLib::Gui
