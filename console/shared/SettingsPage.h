#pragma once

#include <memory>
#include <string>
#include <vector>

#include "gui/CommonDefaultPage.h"
#include "shared/Functions.h"
#include "shared/Input.h"
#include "shared/PageContext.h"

namespace Console {

/// A page that shows settings, lets the user change them, asks for confirmation, and applies them.
///
/// What a request does hangs on the "page_state" that its form carried, and on its method:
///
///     none, or a GET   the form with the present settings; carries 3
///     3                valid input: confirmation, with the input carried on; carries 4
///                      otherwise the form again, wrong entries marked; carries 3
///     4                valid input: applied, then the completion page
///                      otherwise the form again, as above
///     4 with "back"    the form with the input; carries 3
///
/// The form of a page without confirmation carries 4 wherever 3 stands here.
///
/// A page adds its inputs in its constructor and says how they are read and applied.
class SettingsPage : public ORVLib::Gui::CommonDefaultPage {
protected:
    /// Title and place of the page are the function's; `purpose` says what it is for.
    SettingsPage(const PageContext& context, Function function, Text purpose);
    ~SettingsPage() override;

    /// Puts the present settings into the inputs.
    virtual void readCurrent() = 0;

    /// Applies the inputs, which are valid. May mark() or refuse() what only the board can tell to
    /// be wrong, and throws what ends in the error page.
    virtual void apply() = 0;

    /// False for an input that plays no part, given what the user sent in the others. It is neither
    /// checked nor shown to be confirmed, and empty when the others are applied.
    virtual bool isNeeded(const Input&) const { return true; }

    /// Marks inputs that are wrong in a way they cannot tell themselves.
    virtual void checkInputs() {}

    /// False for a page whose input must not stand in a page again, or which has nothing to look
    /// at twice: its form is applied at once.
    virtual bool isConfirmed() const { return true; }

    /// Adds an input with its label, and what is shown beside it when it is wrong.
    template <typename Kind>
    Kind& add(const std::string& label, Text hint, std::unique_ptr<Kind> input) {
        Kind& added = *input;
        addEntry(label, hint, std::move(input));
        return added;
    }
    template <typename Kind>
    Kind& add(Text label, Text hint, std::unique_ptr<Kind> input) {
        return add(text(label), hint, std::move(input));
    }

    /// The inputs that are added from here on stand under a heading.
    void addHeading(const std::string& heading);

    /// Adds a field that every form of the page carries on as it is.
    void carry(const std::string& name, const std::string& value);

    /// Marks an input as wrong, beside its hint or another one. REQUIRES: it was added.
    void mark(const Input& input);
    void mark(const Input& input, Text hint);

    /// Says why the input as a whole cannot be applied.
    void refuse(Text reason);

    /// The operator message of the completion page.
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
    std::vector<Input*> getInputs() const;

private:
    struct Entry {
        std::string heading;
        std::string label;
        Text hint;
        std::unique_ptr<Input> input;
        bool needed = true;
        bool wrong = false;
    };
    class EntryList;

    /// What a request wants of the page.
    enum class Step { SHOW, EDIT_AGAIN, CONFIRM, APPLY };

    static Step stepOf(const ORVLib::Gui::FormInfo& form);

    /// The library's state for a step. A form never carries STATE_CONFIGURE itself: what the user
    /// has confirmed comes as STATE_COMPLETE.
    static int stateOf(Step step);

    void makeDispPage() final;
    void makeConfigPage() final;

    void addEntry(const std::string& label, Text hint, std::unique_ptr<Input> input);
    void readSubmitted();
    bool areInputsValid();
    void emptyUnneeded();
    bool isAnyMarked() const;
    void showForm(bool again);
    void showConfirmation();
    void showCompletion();
    void putEntries(bool editable);
    void putButton(const std::string& marker, Text label);
    void putTexts();

    PageContext m_context;
    Function m_function;
    Text m_purpose;
    std::string m_returnPath;
    int m_completion;
    Text m_applyLabel = TEXT_SET;
    Text m_problem = TEXT_SOME_WRONG;
    bool m_refused = false;
    Step m_step;
    int m_state;
    std::string m_nextHeading;
    std::vector<Entry> m_entries;
    std::vector<std::pair<std::string, std::string>> m_carried;
};

}  // namespace Console
