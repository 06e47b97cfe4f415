#include "gui/JsFunction.h"

#include "base/Output.h"

namespace ORVLib::Gui {

void JsFunction::printHTML() const {
    Output output;
    output << "function " << m_head << "{\n";
    for (const std::string& line : m_lines) {
        output << line << '\n';
    }
    output << "}\n";
    output.print();
}

bool JsFunction::isError() const {
    return false;
}

void JsFunction::addFunction(const std::string& line) {
    m_lines.push_back(line);
}

void JsFunction::addFunction(const std::string& function, const std::string& text) {
    m_lines.push_back(function + "(\"" + text + "\");");
}

void JsFunction::addArray(const std::string& name, const std::vector<std::string>& values) {
    std::string line = name + " = new Array(";
    const char* separator = "";
    for (const std::string& value : values) {
        line.append(separator).append("\"").append(value, 0, value.find('\0')).append("\"");
        separator = ", ";
    }
    m_lines.push_back(line + ");");
}

void JsFunction::addMessage(const std::string& key, const std::string& text) {
    m_lines.push_back("strMSG[\"" + key + "\"] = \"" + text + "\";");
}

void JsFunction::addAlertFunction(std::string text) {
    m_lines.push_back("alert(\"" + std::move(text) + " \");");
}

}  // namespace ORVLib::Gui
