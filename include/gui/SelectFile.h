#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// The browser's own file input. Its value is never printed, because browsers ignore it. FileField
/// is an alternative with a caption in the page's language.
class ORVGUI_EXPORT SelectFile : public FormComponent, public HTMLComponent {
public:
    /// Width in characters.
    static constexpr int DEFAULT_SIZE = 20;

    /// `displayMode` points to a DisplayMode, which is not owned; null is editable.
    explicit SelectFile(const std::string& name, const std::string& value = "",
                        const std::string& form = "", int size = DEFAULT_SIZE,
                        const int* displayMode = nullptr)
        : FormComponent(name, value, form), m_size(size), m_displayMode(displayMode) {}

    /// Width in characters.
    int getSize() const { return m_size; }
    void setSize(int size) { m_size = size; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// The read-only form has the attribute "disable", for style sheets and scripts. Browsers
    /// ignore it and still accept a file: a page that must not take one has to ignore it.
    void printHTML() const override;
    bool isError() const override;

private:
    int m_size;
    const int* m_displayMode;
};

}  // namespace ORVLib::Gui
