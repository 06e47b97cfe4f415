#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// The button that resets the inputs of its form to their first values.
///
/// Nothing is escaped, as in Button.
class ORVGUI_EXPORT ResetButton : public FormComponent, public HTMLComponent {
public:
    /// `value` is the caption; `form` is not printed.
    explicit ResetButton(const std::string& name, const std::string& value = "",
                         const std::string& form = "")
        : FormComponent(name, value, form) {}

    void printHTML() const override;
    bool isError() const override;
};

}  // namespace ORVLib::Gui
