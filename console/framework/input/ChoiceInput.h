#pragma once

#include <string>
#include <utility>
#include <vector>

#include "framework/component/Vocabulary.h"
#include "framework/input/Input.h"

namespace Console {

/// One of several options. Any other value from a browser is wrong.
class ChoiceInput : public Input {
public:
    /// `label` is shown to the user, `value` is the text.
    void addOption(const std::string& value, const std::string& label);

    /// Adds an option for each of the words.
    void addOptions(const Vocabulary& words);

    bool isError() const override { return chosen() == nullptr; }

    /// The label of the chosen option; a value without option as it is.
    std::string getShownText() const override;

    /// The labels of all options.
    std::string getChoices() const override;

protected:
    explicit ChoiceInput(std::string name) : Input(std::move(name)) {}

    struct Option {
        std::string value;
        std::string label;
    };
    const std::vector<Option>& options() const { return m_options; }

    /// Null when no option is chosen.
    const Option* chosen() const;

private:
    std::vector<Option> m_options;
};

/// A choice as a drop-down menu. While no option is chosen, the menu has an empty one too.
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

/// A choice that the user cannot change: shown and carried.
class ChosenInput : public ChoiceInput {
public:
    explicit ChosenInput(const std::string& name) : ChoiceInput(name) {}
    void print() const override;
    bool isEditable() const override { return false; }
    bool isGroup() const override { return true; }
};

}  // namespace Console
