#pragma once

#include <string>

#include "gui/Export.h"

namespace ORVLib::Gui {

/// The common part of all form inputs: the name of the form field, and a value.
class ORVGUI_EXPORT FormComponent {
public:
    /// The name of the form field, by which FormInfo finds it in the next request.
    const std::string& getName() const { return m_name; }
    void setName(const std::string& name) { m_name = name; }

    /// The value that the input shows first, or sends when it is chosen; of buttons the caption.
    const std::string& getValue() const { return m_value; }
    void setValue(const std::string& value) { m_value = value; }

    /// Name of the form that contains the input. For the page's own use. It is not printed.
    const std::string& getForm() const { return m_form; }
    void setForm(const std::string& form) { m_form = form; }

protected:
    /// Only derived classes are constructed.
    FormComponent(const std::string& name, const std::string& value, const std::string& form)
        : m_name(name), m_value(value), m_form(form) {}
    FormComponent(const FormComponent&) = default;
    FormComponent& operator=(const FormComponent&) = default;
    ~FormComponent() = default;

private:
    std::string m_name;
    std::string m_value;
    std::string m_form;
};

}  // namespace ORVLib::Gui
