#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/Texts.h"
#include "framework/input/Input.h"
#include "gui/HTMLComponent.h"
#include "gui/MessageMgr.h"

namespace Console {

/// The inputs of a form, one below the other: each with its label and, when it is wrong, what is
/// shown beside it.
class InputList {
public:
    /// `hint` is what is shown beside the input when it is wrong.
    template <typename Kind>
    Kind& add(const std::string& label, Text hint, std::unique_ptr<Kind> input) {
        Kind& added = *input;
        addEntry(label, hint, std::move(input));
        return added;
    }

    /// The inputs that are added from here on stand under a heading.
    void addHeading(const std::string& heading) { m_nextHeading = heading; }

    /// Takes what the user sent.
    void submit(const ORVLib::Gui::FormInfo& form);

    /// Marks those that are wrong as they are, and no others. An input that is not needed, given
    /// what the user sent in the others, plays no part: it is neither checked nor shown among the
    /// values.
    void check(const std::function<bool(const Input&)>& isNeeded = [](const Input&) {
        return true;
    });

    /// Marks an input as wrong, beside its hint or another one. REQUIRES: it was added.
    void mark(const Input& input);
    void mark(const Input& input, Text hint);
    bool isAnyMarked() const;

    /// All inputs in the order they were added.
    std::vector<Input*> getInputs() const;

    /// Prints labels, inputs and hints.
    void printInputs(ORVLib::Gui::MessageMgr& messages) const;

    /// Prints labels and values, which hidden fields carry on.
    void printValues() const;

private:
    struct Entry {
        std::string heading;
        std::string label;
        Text hint;
        std::unique_ptr<Input> input;
        bool needed = true;
        bool wrong = false;
    };

    void addEntry(const std::string& label, Text hint, std::unique_ptr<Input> input);

    std::string m_nextHeading;
    std::vector<Entry> m_entries;
};

/// Shows a list of inputs, for the user to change or to look at. REQUIRES: list and messages
/// outlive it.
class InputListView : public ORVLib::Gui::HTMLComponent {
public:
    InputListView(const InputList& inputs, ORVLib::Gui::MessageMgr& messages, bool editable = true)
        : m_inputs(inputs), m_messages(messages), m_editable(editable) {}

    void printHTML() const override;
    bool isError() const override { return m_inputs.isAnyMarked(); }

private:
    const InputList& m_inputs;
    ORVLib::Gui::MessageMgr& m_messages;
    bool m_editable;
};

}  // namespace Console
