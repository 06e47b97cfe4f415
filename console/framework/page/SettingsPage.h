#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/input/InputList.h"
#include "framework/input/Inputs.h"
#include "framework/page/FormPage.h"

namespace Console {

/// A page that shows settings, lets the user change them, asks for confirmation, and applies them.
/// PageStep.h has its steps.
///
/// The page says so and shows the present settings when a form did not arrive whole, or is of
/// another session. It does the same when somebody has changed the settings since the user saw them
/// (optimistic locking).
///
/// A page adds its inputs in its constructor, and says how they are read and applied.
class SettingsPage : public FormPage {
protected:
    SettingsPage(const PageContext& context, Function function, Text purpose);

    /// Sets the inputs to the present settings.
    virtual void readCurrent() = 0;

    /// Applies the inputs, which are valid. May mark() or refuse() input that only the board finds
    /// wrong; an exception ends in the error page.
    virtual void apply() = 0;

    /// False for an input that is not used, given the values of the others. It is neither checked
    /// nor shown to be confirmed.
    virtual bool isNeeded(const Input&) const { return true; }

    /// False for an input whose present value changes by itself: it is no change of the settings.
    virtual bool isKept(const Input&) const { return true; }

    /// Calls carry() for what the page must know of the form that it shows, when it is sent.
    virtual void carryMore() {}

    /// Marks inputs that are wrong in combination, or by a rule of the page.
    virtual void checkInputs() {}

    /// The question above the valid input.
    virtual std::string getConfirmation() { return text(TEXT_PLEASE_CONFIRM); }

    /// True for valid input whose question and button are printed as a warning, because data may be
    /// lost.
    virtual bool isDangerous() const { return false; }

    /// What the user would lose with the valid input, and how the console is reached afterwards: a
    /// sentence. The user must consent to it before it is applied. Empty for nothing.
    virtual std::string getLockOut() { return ""; }

    /// False for a page that carries something out: its input is not compared with the present
    /// settings.
    virtual bool isCompared() const { return true; }

    /// False for a page whose form is applied without confirmation: its input must not be printed,
    /// or there is nothing to look at twice.
    virtual bool isConfirmed() const { return true; }

    /// Adds an input with its label. `hint` is shown beside the input when it is wrong.
    template <typename Kind>
    Kind& add(const std::string& label, Text hint, std::unique_ptr<Kind> input) {
        return m_inputs.add(label, hint, std::move(input));
    }
    template <typename Kind>
    Kind& add(Text label, Text hint, std::unique_ptr<Kind> input) {
        return add(text(label), hint, std::move(input));
    }

    /// Puts a heading above the next input.
    void addHeading(const std::string& heading) { m_inputs.addHeading(heading); }

    /// Marks an input as wrong, with its hint or another one. REQUIRES: it was added.
    void mark(const Input& input) { m_inputs.mark(input); }
    void mark(const Input& input, Text hint) { m_inputs.mark(input, hint); }

    /// All inputs in the order they were added.
    std::vector<Input*> getInputs() const { return m_inputs.getInputs(); }

private:
    void makeDispPage() final;
    void makeConfigPage() final;

    void readPresent();
    void writeTexts(Record& record) const;
    void readTexts(RecordReader& reader);
    bool isOutdated(const std::string& seen) const;
    bool isConsentMissing();
    std::string findLockOut();
    void submit();
    bool areInputsValid();
    void showForm();
    void showConfirmation();
    void showDone();
    void putConsent();
    void putEntries(View view);

    Record m_present;        ///< texts of the inputs before the change
    std::string m_revision;  ///< digest of the settings that the user sees, or saw
    InputList m_inputs;
};

}  // namespace Console
