#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A file chooser with a caption in the page's language: a read-only text box for the path and a
/// button. The browser's own file input is hidden; it uploads the file in the field "browse_" plus
/// the field's name.
///
/// The button's script finds both inputs by name. So the component must be in a form, and its name
/// must be an identifier that is not a property of a button (not "value" or "name"). The script
/// opens the file dialog and copies the path. Current browsers do not wait for the dialog, so the
/// path appears one click late: the page should add a listener for "change" that copies the hidden
/// input's value into the text box.
///
/// Nothing is escaped. The value may come from a browser: escape it with
/// MessageMgr::convertHTML().
///
/// @code
/// const FormInfo request;
/// std::string path;
/// request.getFormData("image", path);
/// MessageMgr::convertHTML(path);
/// const FileField field("image", path, "", "Choose file");
/// field.printHTML();
/// @endcode
class ORVGUI_EXPORT FileField : public FormComponent, public HTMLComponent {
public:
    /// Width of the text box in characters.
    static constexpr int DEFAULT_SIZE = 20;

    /// `displayMode` points to a DisplayMode, which is not owned; null is editable.
    explicit FileField(const std::string& name, const std::string& value = "",
                       const std::string& form = "", const std::string& buttonLabel = "",
                       int size = DEFAULT_SIZE, const int* displayMode = nullptr)
        : FormComponent(name, value, form),
          m_buttonLabel(buttonLabel),
          m_size(size),
          m_displayMode(displayMode) {}

    /// The caption of the button.
    const std::string& getButtonLabel() const { return m_buttonLabel; }
    void setButtonLabel(const std::string& buttonLabel) { m_buttonLabel = buttonLabel; }

    /// Width of the text box in characters.
    int getSize() const { return m_size; }
    void setSize(int size) { m_size = size; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// The read-only form is the path as text, in CONFIRM_MODE with a hidden input that carries it.
    void printHTML() const override;
    bool isError() const override;

private:
    void printInputs() const;

    std::string m_buttonLabel;
    int m_size;
    const int* m_displayMode;
};

}  // namespace ORVLib::Gui
