#pragma once

#include <string>
#include <vector>

#include "framework/input/Input.h"

namespace Console {

/// Check boxes. As a text: "1" or "0" for each.
class ChecksInput : public Input {
public:
    /// Without boxes; see addBox().
    explicit ChecksInput(const std::string& name) : Input(name) {}

    void addBox(const std::string& label);

    void setText(const std::string& text) override;
    std::string getText() const override;
    void submit(const ORVLib::Gui::FormInfo& form) override;
    bool isError() const override { return false; }
    bool isEmpty() const override { return getText().find('1') == std::string::npos; }
    void print() const override;
    std::string getShownText() const override;
    void printCarried() const override;
    bool isGroup() const override { return true; }

private:
    struct Box {
        std::string label;
        bool checked = false;
    };
    std::vector<Box> m_boxes;
};

/// One check box. As a text: "1" or "0".
class FlagInput : public ChecksInput {
public:
    /// `label` stands beside the box. A confirmation shows it, or `otherwise` when the box is not
    /// checked.
    FlagInput(const std::string& name, const std::string& label, std::string otherwise);

    std::string getShownText() const override;

private:
    std::string m_otherwise;
};

}  // namespace Console
