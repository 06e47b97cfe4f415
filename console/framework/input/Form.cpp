#include "framework/input/Form.h"

#include "gui/MessageMgr.h"

namespace Console {

std::string fieldOf(const Fields& fields, const std::string& name) {
    const auto field = fields.find(name);
    return field != fields.end() ? field->second : "";
}

std::string fieldOf(const ORVLib::Gui::FormInfo& form, const std::string& name) {
    std::string value;
    form.getFormData(name, value);
    return value;
}

std::string inputValue(std::string text) {
    ORVLib::Gui::MessageMgr::convertStr(text, "&", "&amp;");
    return text;
}

}  // namespace Console
