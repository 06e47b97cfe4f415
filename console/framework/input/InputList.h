#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/Texts.h"
#include "framework/component/Help.h"
#include "framework/input/Input.h"
#include "gui/HTMLComponent.h"

namespace Console {

/// The inputs of a form, each with its label and, when it is wrong, a hint.
class InputList {
public:
    /// `hint` is shown beside the input when it is wrong.
    template <typename Kind>
    Kind& add(const std::string& label, Text hint, std::unique_ptr<Kind> input) {
        Kind& added = *input;
        addEntry(label, hint, std::move(input));
        return added;
    }

    /// Puts a heading above the next input.
    void addHeading(const std::string& heading) { m_nextHeading = heading; }

    /// Takes the values that the user sent.
    void submit(const Fields& fields);

    /// Marks the inputs that are wrong, and no others. An input that is not needed, given the
    /// values of the others, is neither checked nor shown among the values.
    void check(const std::function<bool(const Input&)>& isNeeded = [](const Input&) {
        return true;
    });

    /// Marks an input as wrong, with its hint or another one. REQUIRES: it was added.
    void mark(const Input& input);
    void mark(const Input& input, Text hint);
    bool isAnyMarked() const;

    /// All inputs in the order they were added.
    std::vector<Input*> getInputs() const;

    /// Says in a help text what each input takes.
    void describe(Help& help) const;

    /// Takes what the inputs show now as the present values: from then on, values are shown as
    /// changes, from what to what, and those that do not change are left out.
    void compareWithPresent();

    /// True when the inputs differ from the present values, or there are none to compare with.
    bool isAnyChanged() const;

    /// Prints labels, inputs and hints.
    void printInputs() const;

    /// Prints labels and values. With `carried`, hidden fields carry the values, also of those that
    /// do not change.
    void printValues(bool carried) const;

private:
    struct Entry {
        std::string heading;
        std::string label;
        Text hint;
        std::unique_ptr<Input> input;
        Text problem;                                       ///< the hint of a wrong input
        std::optional<std::string> present = std::nullopt;  ///< what it showed before
        bool needed = true;
        bool wrong = false;
    };

    static void printInput(const Entry& entry);
    static bool isChanged(const Entry& entry);
    static void printValue(const Entry& entry);
    static std::string attributesOf(const Entry& entry, std::size_t box, const std::string& hintId);

    void addEntry(const std::string& label, Text hint, std::unique_ptr<Input> input);

    std::string m_nextHeading;
    std::vector<Entry> m_entries;
};

/// How a list of inputs is shown.
enum class View {
    EDITABLE,   ///< for the user to change
    CONFIRMED,  ///< for the user to look at, with fields that carry the values
    DONE        ///< for the user to look at
};

/// Shows a list of inputs. REQUIRES: the list outlives it.
class InputListView : public ORVLib::Gui::HTMLComponent {
public:
    explicit InputListView(const InputList& inputs, View view = View::EDITABLE)
        : m_inputs(inputs), m_view(view) {}

    void printHTML() const override;
    bool isError() const override { return m_inputs.isAnyMarked(); }

private:
    const InputList& m_inputs;
    View m_view;
};

}  // namespace Console
