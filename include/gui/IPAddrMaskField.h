#pragma once

#include "gui/IPAddressField.h"

namespace ORVLib::Gui {

/// An IPv4 address with its prefix length: the four boxes of an IPAddressField and a fifth one,
/// named with the field's name followed by 4, for the number of mask bits.
///
/// The read-only form is the address as text, or nothing unless isShowReadOnlyText(). In
/// CONFIRM_MODE it also prints all five values in hidden inputs. The boxes have no focus function
/// and are never disabled.
///
/// @code
/// const FormInfo request;
/// IPAddrMaskField field("net");
/// std::string text;
/// for (int i = 0; i < IPAddrMaskField::ADDR_BYTE_SIZE; ++i) {
///     request.getFormData("net" + std::to_string(i), text);
///     field.setAddress(i, text);
/// }
/// request.getFormData("net4", text);
/// field.setMaskBit(text);
/// @endcode
class ORVGUI_EXPORT IPAddrMaskField : public IPAddressField {
public:
    /// Width and longest input of the boxes in characters, and the valid numbers of mask bits.
    static constexpr int IP_SIZE = SIZE;
    static constexpr int IP_MAX_LENGTH = MAX_LENGTH;
    static constexpr int MASK_SIZE = 3;        // width of the mask box in characters
    static constexpr int MASK_MAX_LENGTH = 2;  // characters the mask box takes
    static constexpr int MASK_VALUE_MIN = 1;
    static constexpr int MASK_VALUE_MAX = 32;

    /// `displayMode` points to a DisplayMode, which is not owned; null is editable.
    explicit IPAddrMaskField(const std::string& name, const std::string& value = "",
                             const std::string& form = "", const int* displayMode = nullptr,
                             bool showReadOnlyText = false)
        : IPAddressField(name, value, form),
          m_displayMode(displayMode),
          m_showReadOnlyText(showReadOnlyText) {}

    /// Sets the mask. `bits` outside 1 to 32 marks the field invalid; the number is kept so that
    /// the user sees it again.
    void setMaskBit(const int& bits);

    /// Sets the mask from user input. Anything but digits marks the field invalid and is kept with
    /// its double quotes escaped, which is safe in the mask box but not in the read-only text:
    /// print that only when isError() is false.
    void setMaskBit(std::string text);

    /// The text in the mask box, as it is printed.
    const std::string& getMaskBit() const { return m_mask; }

    /// Hides IPAddressField's display mode, which has no effect here.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// Whether the read-only form shows the address.
    bool isShowReadOnlyText() const { return m_showReadOnlyText; }
    void setShowReadOnlyText(bool show) { m_showReadOnlyText = show; }

    void printHTML() const override;

    /// True when the mask or a byte of the address is invalid.
    bool isError() const override;

private:
    void printBoxes() const;
    void printReadOnlyText() const;
    void printHiddenInputs() const;

    const int* m_displayMode;
    bool m_maskError = false;
    bool m_showReadOnlyText;
    std::string m_mask;
};

}  // namespace ORVLib::Gui
