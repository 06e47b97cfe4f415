#pragma once

#include <string>
#include <vector>

#include "framework/input/Input.h"

namespace Console {

/// Check boxes. The text is "1" or "0" for each.
class ChecksInput : public Input {
public:
    /// Has no boxes; see addBox().
    explicit ChecksInput(const std::string& name) : Input(name, 0) {}

    void addBox(const std::string& label);

    void setText(const std::string& text) override;
    std::string getText() const override;
    bool isError() const override { return false; }
    bool isEmpty() const override { return getText().find('1') == std::string::npos; }
    void print() const override;
    std::string getShownText() const override;
    void printCarried() const override;
    bool isGroup() const override { return true; }

private:
    std::string fieldName(std::size_t number) const override { return numberedName(number); }
    bool isChecked(std::size_t number) const;

    std::vector<std::string> m_labels;
};

/// One check box. The text is "1" or "0".
class FlagInput : public ChecksInput {
public:
    /// `label` is beside the box. A confirmation shows it, or `otherwise` when the box is not
    /// checked.
    FlagInput(const std::string& name, const std::string& label, std::string otherwise);

    std::string getShownText() const override;
    std::string getChoices() const override { return m_choices; }

private:
    std::string m_otherwise;
    std::string m_choices;
};

}  // namespace Console
