#pragma once

#include "gui/IPAddressField.h"

namespace ORVLib::Gui {

/// An IPv4 address with its prefix length: the boxes of an address and a fifth one for the mask
/// bits, named with the field's name followed by 4.
///
/// Read-only it prints the address as text, or nothing when isShowReadOnlyText() is off; under
/// CONFIRM_MODE it carries all five values in hidden inputs. The boxes here have no focus function
/// and no disabled form.
class ORVGUI_EXPORT IPAddrMaskField : public IPAddressField {
public:
    /// Measures of the address boxes and of the mask box, in characters, and the masks that are
    /// valid, in bits.
    static constexpr int IP_SIZE = SIZE;
    static constexpr int IP_MAX_LENGTH = MAX_LENGTH;
    static constexpr int MASK_SIZE = 3;        // width of the mask box in characters
    static constexpr int MASK_MAX_LENGTH = 2;  // characters the mask box takes
    static constexpr int MASK_VALUE_MIN = 1;
    static constexpr int MASK_VALUE_MAX = 32;

    /// `displayMode` is a DisplayMode, not owned; null is editable.
    explicit IPAddrMaskField(const std::string& name, const std::string& value = "",
                             const std::string& form = "", const int* displayMode = nullptr,
                             bool showReadOnlyText = false)
        : IPAddressField(name, value, form),
          m_displayMode(displayMode),
          m_showReadOnlyText(showReadOnlyText) {}

    /// `bits` outside 1 to 32 is an error; the number is kept so that the user sees it again.
    void setMaskBit(const int& bits);

    /// Sets the mask from what a user typed. Anything but digits is an error and is kept for the
    /// mask box, where only its double quotes need escaping: print the text read-only only after
    /// isError() said that the field is valid.
    void setMaskBit(std::string text);

    /// The text in the mask box, as it is printed.
    const std::string& getMaskBit() const { return m_mask; }

    /// Hides IPAddressField's display mode, which plays no part here.
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
