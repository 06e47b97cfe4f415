#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/input/InputList.h"
#include "framework/input/Inputs.h"
#include "framework/page/FormPage.h"

namespace Console {

/// A page that shows settings, lets the user change them, asks for confirmation, and applies them.
///
/// What a request does hangs on the "page_state" that its form carried, and on its method:
///
///     none, or a GET   the form with the present settings; carries 3
///     "back", any      the form with the input; carries 3
///     3                valid input: confirmation, with the input carried on; carries 4
///                      otherwise the form again, wrong entries marked; carries 3
///     4                valid input: applied, then the completion page
///                      otherwise the form again, as above
///
/// A form that did not arrive whole, or is not of this session, counts as none, and the page says
/// so. So does one with 4 whose settings somebody has changed since its user saw them: what the
/// other one did is not undone unseen. The form of a page without confirmation carries 4 wherever 3
/// stands here.
///
/// A page adds its inputs in its constructor and says how they are read and applied.
class SettingsPage : public FormPage {
protected:
    SettingsPage(const PageContext& context, Function function, Text purpose);

    /// Puts the present settings into the inputs.
    virtual void readCurrent() = 0;

    /// Applies the inputs, which are valid. May mark() or refuse() what only the board can tell to
    /// be wrong, and throws what ends in the error page.
    virtual void apply() = 0;

    /// False for an input that plays no part, given what the user sent in the others. It is neither
    /// checked nor shown to be confirmed; apply() takes it as empty.
    virtual bool isNeeded(const Input&) const { return true; }

    /// False for an input whose present value changes by itself.
    virtual bool isKept(const Input&) const { return true; }

    /// Marks inputs that are wrong in a way they cannot tell themselves.
    virtual void checkInputs() {}

    /// What the confirmation says above the input, which is valid.
    virtual std::string getConfirmation() { return text(TEXT_PLEASE_CONFIRM); }

    /// False for a page whose input must not stand in a page again, or which has nothing to look
    /// at twice: its form is applied at once.
    virtual bool isConfirmed() const { return true; }

    /// Adds an input with its label, and what is shown beside it when it is wrong.
    template <typename Kind>
    Kind& add(const std::string& label, Text hint, std::unique_ptr<Kind> input) {
        return m_inputs.add(label, hint, std::move(input));
    }
    template <typename Kind>
    Kind& add(Text label, Text hint, std::unique_ptr<Kind> input) {
        return add(text(label), hint, std::move(input));
    }

    /// The inputs that are added from here on stand under a heading.
    void addHeading(const std::string& heading) { m_inputs.addHeading(heading); }

    /// Marks an input as wrong, beside its hint or another one. REQUIRES: it was added.
    void mark(const Input& input) { m_inputs.mark(input); }
    void mark(const Input& input, Text hint) { m_inputs.mark(input, hint); }

    /// All inputs in the order they were added.
    std::vector<Input*> getInputs() const { return m_inputs.getInputs(); }

private:
    void makeDispPage() final;
    void makeConfigPage() final;

    void readSeen();
    bool isOutdated();
    bool areInputsValid();
    void showForm();
    void showConfirmation();
    void putEntries(bool editable);

    std::string m_revision;  ///< digest of the settings that the user sees, or saw
    InputList m_inputs;
};

}  // namespace Console
