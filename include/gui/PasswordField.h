#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A password input. The value is never printed: the input is always empty, and the read-only form
/// shows one "*" for each byte of the value.
class ORVGUI_EXPORT PasswordField : public HTMLComponent, public FormComponent {
public:
    /// Width and longest input in characters.
    static constexpr int DEFAULT_SIZE = 20;
    static constexpr int DEFAULT_MAX_LENGTH = 255;

    /// `displayMode` points to a DisplayMode, which is not owned; null is editable.
    explicit PasswordField(const std::string& name, const std::string& value = "",
                           const std::string& form = "", int size = DEFAULT_SIZE,
                           int maxLength = DEFAULT_MAX_LENGTH, const int* displayMode = nullptr)
        : FormComponent(name, value, form),
          m_size(size),
          m_maxLength(maxLength),
          m_displayMode(displayMode) {}

    void printHTML() const override;

    /// Always false: the page has to check the password by its own rules.
    bool isError() const override;

    /// Width in characters.
    int getSize() const { return m_size; }
    void setSize(int size) { m_size = size; }

    /// Longest input in characters. Only the browser enforces it.
    int getMaxLength() const { return m_maxLength; }
    void setMaxLength(int maxLength) { m_maxLength = maxLength; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

private:
    int m_size;
    int m_maxLength;
    const int* m_displayMode;
};

}  // namespace ORVLib::Gui
