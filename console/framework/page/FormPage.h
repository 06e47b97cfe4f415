#pragma once

#include <memory>
#include <string>

#include "framework/access/Functions.h"
#include "framework/component/Components.h"
#include "framework/page/PageContext.h"
#include "framework/page/PageStep.h"
#include "gui/CommonDefaultPage.h"

namespace Console {

/// What pages share whose form changes something: the step that a request asks for, the frame of
/// the form, what it carries on, and where its completion leads.
class FormPage : public ORVLib::Gui::CommonDefaultPage {
protected:
    /// Title and place of the page are the function's; `purpose` says what it is for. `skeleton`
    /// is a file name in the folder of the page skeletons.
    FormPage(const PageContext& context, Function function, Text purpose,
             const std::string& skeleton);

    /// Adds a row that only shows something, above the inputs.
    void addShown(Text label, Component value);
    void addShown(Text label, const std::string& value);

    /// Adds a field that the form carries on as it is.
    void carry(const std::string& name, const std::string& value);

    /// Says why what was sent cannot be applied. `detail` follows in parentheses when it is not
    /// empty.
    void refuse(Text reason, const std::string& detail = "");
    bool isRefused() const { return !m_problem.empty(); }

    /// Gives the page another title than its function has.
    void setTitle(Text title) { m_title = title; }

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

    // What follows is for the kinds of page; the pages themselves need not call it.

    Step getStep() const { return m_step; }

    /// Makes a form that carries the state after `state`, with what refuse() said. Its inputs and
    /// buttons are the kind's.
    void beginForm(int state);

    /// Makes the form that shows what was sent, to be confirmed as `question` asks: a button
    /// applies it, the other one leads back.
    void beginConfirmation(const std::string& question, Text backLabel);

    /// Puts in the rows that only show something, and what the form carries on. Once for a page.
    void putRows();

    void putButton(const std::string& marker, Text label);
    void putApplyButton() { putButton("submit", m_applyLabel); }

    /// Makes the page that says that the form was applied.
    void showCompletion();

private:
    PageContext m_context;
    Function m_function;
    Text m_title;
    Text m_purpose;
    std::string m_returnPath;
    int m_completion;
    Text m_applyLabel = TEXT_SET;
    std::string m_problem;
    Step m_step;
    int m_state;
    std::unique_ptr<LabelledList> m_shown;
    std::unique_ptr<ComponentGroup> m_carried;
};

}  // namespace Console
