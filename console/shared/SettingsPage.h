#pragma once

#include <memory>
#include <string>
#include <vector>

#include "gui/CommonDefaultPage.h"
#include "gui/FormComponent.h"
#include "gui/FormInfo.h"
#include "shared/Texts.h"

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
    /// `form` and `messages` are not owned and must outlive the page. `path` is where the page
    /// lies, `completion` the operator message of its completion page.
    SettingsPage(ORVLib::Gui::MessageMgr& messages, const ORVLib::Gui::FormInfo& form, int pageId,
                 const std::string& path, int completion);

    /// Puts the present settings into the inputs.
    virtual void readCurrent() = 0;

    /// Applies the inputs, which are valid. May mark() what only the board can tell to be wrong,
    /// and throws what ends in the error page.
    virtual void apply() = 0;

    /// Marks inputs that are wrong in a way their components cannot tell.
    virtual void checkInputs() {}

    /// False for a page whose input must not stand in a page again: its form is applied at once.
    virtual bool isConfirmed() const { return true; }

    /// What the page says about itself.
    void setTexts(Text title, Text purpose);

    /// Adds an input with its label, and what is shown beside it when it is wrong.
    template <typename Input>
    Input& add(Text label, Text hint, std::unique_ptr<Input> input) {
        Input& added = *input;
        addEntry({label, hint, &added, std::move(input)});
        return added;
    }

    /// Marks an input as wrong, beside its hint or another one.
    void mark(const ORVLib::Gui::FormComponent& input);
    void mark(const ORVLib::Gui::FormComponent& input, Text hint);

    /// For inputs that show themselves as the page is: editable or not.
    const int* displayMode() const { return &m_displayMode; }

private:
    struct Entry {
        Text label;
        Text hint;
        ORVLib::Gui::FormComponent* input;
        std::unique_ptr<ORVLib::Gui::HTMLComponent> component;
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

    void addEntry(Entry entry);
    void readSubmitted();
    bool areInputsValid();
    bool isAnyMarked() const;
    void showForm(bool again);
    void showConfirmation();
    void putButton(const std::string& marker, Text label);
    void putTexts();

    const ORVLib::Gui::FormInfo& m_form;
    std::string m_path;
    int m_completion;
    Step m_step;
    int m_state;
    int m_displayMode;
    Text m_title = TEXT_CONSOLE;
    Text m_purpose = TEXT_CONSOLE;
    std::vector<Entry> m_entries;
};

}  // namespace Console
