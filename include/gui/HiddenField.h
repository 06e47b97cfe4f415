#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A hidden input that carries a value from one page to the next request.
///
/// Only double quotes in the value are escaped. An entity in the value, such as "&lt;", therefore
/// comes back as the character that it names.
class ORVGUI_EXPORT HiddenField : public FormComponent, public HTMLComponent {
public:
    /// `form` is not printed.
    explicit HiddenField(const std::string& name, const std::string& value = "",
                         const std::string& form = "")
        : FormComponent(name, value, form) {}

    void printHTML() const override;
    bool isError() const override;
};

}  // namespace ORVLib::Gui
