#pragma once

#include <type_traits>

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// An IPv4 address in four text boxes, named with the field's name followed by 0 to 3;
/// FormInfo::getFormIPAddr() reads them back.
///
/// Each box is checked when it is set. An invalid text is kept so that the user sees it again. The
/// error is never cleared: create a new field to check again. A box that was never set is empty
/// and valid.
///
/// Boxes are numbered from 0, from left to right. Other indices wrap around: 5 is box 1, -1 is
/// box 3.
///
/// @code
/// IPAddressField field("gateway");
/// const unsigned char stored[] = {192, 0, 2, 1};
/// field.setAddress(stored);
/// field.setAddress(3, std::string("999"));  // user input: now isError()
/// field.printHTML();
/// @endcode
class ORVGUI_EXPORT IPAddressField : public FormComponent, public HTMLComponent {
public:
    static constexpr int ADDR_BYTE_SIZE = 4;  // boxes
    static constexpr int SIZE = 4;            // width of a box in characters
    static constexpr int MAX_LENGTH = 3;      // characters a box takes

    /// `displayMode` points to a DisplayMode, which is not owned; null is editable.
    explicit IPAddressField(const std::string& name, const std::string& value = "",
                            const std::string& form = "", const int* displayMode = nullptr)
        : FormComponent(name, value, form), m_displayMode(displayMode) {}

    /// Sets one box. A number outside 0 to 255 marks the field invalid.
    void setAddress(int index, int number);

    /// Sets one box from user input. Anything but digits marks the field invalid and is kept,
    /// escaped for HTML. A number is kept without leading zeros; one above 2147483647 becomes that.
    void setAddress(int index, std::string text);

    /// Sets all boxes from the four bytes at `address`, leftmost first. Null changes nothing.
    void setAddress(unsigned char* address) { setBytes(address); }

    /// As above, for constant bytes. A template, so that nullptr is not ambiguous.
    template <typename Byte, typename = std::enable_if_t<std::is_same_v<Byte, const unsigned char>>>
    void setAddress(Byte* address) {
        setBytes(address);
    }

    /// The text in a box, as it is printed.
    const std::string& getAddress(int index) const { return m_address[boxOf(index)]; }

    /// Calls the script `function`(`arguments`) when a box gets the focus. Nothing is escaped, and
    /// the attribute is in double quotes: use single quotes in the arguments.
    void setOnFocusFunction(std::string function, std::string arguments);

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    void printHTML() const override;
    bool isError() const override;

private:
    static unsigned int boxOf(int index) {
        return static_cast<unsigned int>(index) % ADDR_BYTE_SIZE;
    }

    void setBytes(const unsigned char* address);

    std::string m_address[ADDR_BYTE_SIZE];
    const int* m_displayMode;
    bool m_error = false;
    std::string m_onFocus;
};

}  // namespace ORVLib::Gui
