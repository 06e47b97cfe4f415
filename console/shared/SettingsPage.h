#pragma once

#include <memory>
#include <string>
#include <vector>

#include "gui/CommonDefaultPage.h"
#include "shared/Components.h"
#include "shared/Functions.h"
#include "shared/InputList.h"
#include "shared/Inputs.h"
#include "shared/PageContext.h"
#include "shared/PageStep.h"

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
/// A form that did not arrive whole counts as none, and the page says so. The form of a page
/// without confirmation carries 4 wherever 3 stands here.
///
/// A page adds its inputs in its constructor and says how they are read and applied.
class SettingsPage : public ORVLib::Gui::CommonDefaultPage {
public:
    ~SettingsPage() override;

protected:
    /// Title and place of the page are the function's; `purpose` says what it is for.
    SettingsPage(const PageContext& context, Function function, Text purpose);

    /// Puts the present settings into the inputs.
    virtual void readCurrent() = 0;

    /// Applies the inputs, which are valid. May mark() or refuse() what only the board can tell to
    /// be wrong, and throws what ends in the error page.
    virtual void apply() = 0;

    /// False for an input that plays no part, given what the user sent in the others. It is neither
    /// checked nor shown to be confirmed; apply() takes it as empty.
    virtual bool isNeeded(const Input&) const { return true; }

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

    /// Adds a row that only shows something, above the inputs.
    void addShown(Text label, Component value);
    void addShown(Text label, const std::string& value);

    /// Adds a field that every form of the page carries on as it is.
    void carry(const std::string& name, const std::string& value);

    /// Marks an input as wrong, beside its hint or another one. REQUIRES: it was added.
    void mark(const Input& input) { m_inputs.mark(input); }
    void mark(const Input& input, Text hint) { m_inputs.mark(input, hint); }

    /// Says why the input as a whole cannot be applied.
    void refuse(Text reason);

    /// Gives the page another title than its function has.
    void setTitle(Text title) { m_title = title; }

    /// The operator message of the completion page, and where its button leads.
    void setCompletion(int messageId) { m_completion = messageId; }

    /// Where the completion page's button leads, and a link beside the form's: the page that this
    /// one was opened from. Without it the button leads to the page itself.
    void setReturnPath(const std::string& path);

    /// What the button that applies is called.
    void setApplyLabel(Text label) { m_applyLabel = label; }

    /// A catalogue text in the user's language.
    std::string text(Text number) { return getMessages().getString(number); }

    ORVLib::Gui::CGIRequester& getRequester() const { return m_context.requester; }
    const PageContext& getContext() const { return m_context; }

    /// All inputs in the order they were added.
    std::vector<Input*> getInputs() const { return m_inputs.getInputs(); }

private:
    void makeDispPage() final;
    void makeConfigPage() final;

    bool areInputsValid();
    void showForm(bool again);
    void showConfirmation();
    void showCompletion();
    void putEntries(bool editable);
    void putButton(const std::string& marker, Text label);
    void beginForm(const int* state);
    void putTexts();

    PageContext m_context;
    Function m_function;
    Text m_title;
    Text m_purpose;
    std::string m_returnPath;
    int m_completion;
    Text m_applyLabel = TEXT_SET;
    Text m_problem = TEXT_SOME_WRONG;
    bool m_refused = false;
    Step m_step;
    int m_state;
    std::unique_ptr<Facts> m_shown;
    InputList m_inputs;
    std::unique_ptr<Sequence> m_carried;
};

}  // namespace Console
