#pragma once

#include <string>

#include "gui/Export.h"

namespace ORVLib::Gui {

/// What every form input has: a name, under which its value comes back with the next request, and
/// a value.
class ORVGUI_EXPORT FormComponent {
public:
    /// The name of the form field.
    const std::string& getName() const { return m_name; }
    void setName(const std::string& name) { m_name = name; }

    /// What the input shows first, or sends when it is chosen.
    const std::string& getValue() const { return m_value; }
    void setValue(const std::string& value) { m_value = value; }

    /// Name of the form that the input stands in. For the page's own use: it is not printed.
    const std::string& getForm() const { return m_form; }
    void setForm(const std::string& form) { m_form = form; }

protected:
    /// The part of a component; there is no input of this class alone.
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
