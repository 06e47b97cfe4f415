#pragma once

#include <string>
#include <utility>
#include <vector>

#include "framework/component/Vocabulary.h"
#include "framework/input/Input.h"

namespace Console {

/// One of several options: anything else that a browser may send is wrong.
class ChoiceInput : public Input {
public:
    /// `label` is what the user reads, `value` the text that stands for it.
    void addOption(const std::string& value, const std::string& label);

    /// An option for each of the words.
    void addOptions(ORVLib::Gui::MessageMgr& messages, const Vocabulary& words);

    void setText(const std::string& text) override { m_chosen = text; }
    std::string getText() const override { return m_chosen; }
    void submit(const ORVLib::Gui::FormInfo& form) override;
    bool isError() const override;
    std::string getShownText() const override;
    void printCarried() const override;

protected:
    explicit ChoiceInput(std::string name) : Input(std::move(name)) {}

    struct Option {
        std::string value;
        std::string label;
    };
    const std::vector<Option>& options() const { return m_options; }
    const Option* chosen() const;

private:
    std::vector<Option> m_options;
    std::string m_chosen;
};

/// A choice as a drop-down menu. When none of its options is chosen, an empty one is.
class MenuInput : public ChoiceInput {
public:
    explicit MenuInput(const std::string& name) : ChoiceInput(name) {}
    void print() const override;
};

/// A choice as radio buttons.
class RadioInput : public ChoiceInput {
public:
    explicit RadioInput(const std::string& name) : ChoiceInput(name) {}
    void print() const override;
    bool isGroup() const override { return true; }
};

/// A choice made already: shown and carried on, with nothing for the user to change.
class ChosenInput : public ChoiceInput {
public:
    explicit ChosenInput(const std::string& name) : ChoiceInput(name) {}
    void print() const override;
    bool isGroup() const override { return true; }
};

}  // namespace Console
