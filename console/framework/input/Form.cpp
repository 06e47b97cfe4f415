#include "framework/input/Form.h"

#include "gui/MessageMgr.h"

namespace Console {

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
