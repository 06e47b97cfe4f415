#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// Chooses a file to upload: a read-only text box with the chosen path and a button with a caption
/// of the page's own, in place of the browser's file input, which is hidden and uploads the file
/// under "browse_" and the field's name.
///
/// The button's script finds both inputs by their names, so the field must stand in a form, and
/// its name must be an identifier that a button does not use itself ("value" or "name" would not
/// do). It opens the file dialog and copies the path. Current browsers do not wait for the dialog,
/// so that the copy comes one click late: the page adds a listener for "change" that copies the
/// hidden input's value into the text box.
///
/// Nothing is escaped: the value may come from a browser, escape it before
/// (MessageMgr::convertHTML()).
class ORVGUI_EXPORT FileField : public FormComponent, public HTMLComponent {
public:
    /// Width of the text box in characters.
    static constexpr int DEFAULT_SIZE = 20;

    /// `displayMode` is a DisplayMode, not owned; null is editable.
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

    /// Read-only it prints the path as text; under CONFIRM_MODE also a hidden input with it.
    void printHTML() const override;
    bool isError() const override;

private:
    void printInputs() const;

    std::string m_buttonLabel;
    int m_size;
    const int* m_displayMode;
};

}  // namespace ORVLib::Gui
