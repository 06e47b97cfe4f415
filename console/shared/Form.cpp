#include "shared/Form.h"

namespace Console {

std::string fieldOf(const ORVLib::Gui::FormInfo& form, const std::string& name) {
    std::string value;
    form.getFormData(name, value);
    return value;
}

}  // namespace Console
