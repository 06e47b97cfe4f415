#pragma once

#include <memory>
#include <string>

#include "framework/access/Functions.h"
#include "framework/component/Components.h"
#include "framework/component/PageText.h"
#include "framework/input/InputList.h"
#include "framework/page/PageContext.h"
#include "framework/page/PageStep.h"
#include "gui/CommonDefaultPage.h"

namespace Console {

/// The base of pages whose form changes something: the step of the request, the parts of the form
/// that all of them have, the fields it carries, and the completion page.
class FormPage : public ORVLib::Gui::CommonDefaultPage {
public:
    ~FormPage() override;  // not inline: each page would have a copy of this class's tables

    /// Shows the network settings that wait to be confirmed, if any do. REQUIRES: makePage() was
    /// called, and the user may change network settings.
    void putProbation();

protected:
    /// The function gives the page its title and address; `purpose` says what the page is for.
    /// `skeleton` is a file name in the folder of the page skeletons.
    FormPage(const PageContext& context, Function function, Text purpose,
             const std::string& skeleton);

    /// Adds a row that the user cannot change, above the inputs.
    void addShown(Text label, Component value);
    void addShown(Text label, const std::string& value);

    /// Adds a hidden field to the form.
    void carry(const std::string& name, const std::string& value);

    /// As carry(), for a field that the page also needs in its address.
    void carryInAddress(const std::string& name, const std::string& value);

    /// The value of a field of the request; empty without it.
    std::string getField(const std::string& name) const;

    /// Says why the input cannot be applied. `detail`, unless empty, follows in parentheses.
    void refuse(Text reason, const std::string& detail = "");
    bool isRefused() const { return !m_problem.empty(); }

    /// Sets a title other than the function's.
    void setTitle(Text title) { m_title = title; }

    /// Sets a help text other than the function's.
    void setHelp(Text help) { m_help = help; }

    /// Sets the operator message of the completion page.
    void setCompletion(int messageId) { m_completion = messageId; }

    /// Sets the page that this one was opened from: the completion page's button and a link beside
    /// the form lead there. Without it, the button leads to the page itself.
    void setReturnPath(const std::string& path);

    /// Sends the browser to another page of the console after the form is applied: one that shows
    /// the progress, or for a change after which the user may not use this one any longer.
    void setDonePath(const std::string& path) { m_donePath = path; }

    /// Sets the label of the button that applies.
    void setApplyLabel(Text label) { m_applyLabel = label; }

    ORVLib::Gui::CGIRequester& getRequester() const { return m_context.requester; }
    const PageContext& getContext() const { return m_context; }

    // The operations below are for the kinds of page; the pages themselves need not call them.

    Step getStep() const { return m_request.step; }
    const Fields& getFields() const { return m_request.fields; }

    /// What the page gave to answerDone(). REQUIRES: the step is DONE.
    const Record& getDone() const { return m_request.done; }

    /// Sends the browser on to a GET that takes the step which this request asks for. Does nothing
    /// and returns false when the request is no POST, or the board does not keep the form.
    bool answerDraft();

    /// Before a form is applied: false when its draft was applied already, or is gone. The browser
    /// is then sent to a page that says so.
    bool claimForm();

    /// Sends the browser on to a page that shows that the form was applied: `done` is what it needs
    /// for that. Without the board's help, the answer is that page.
    void answerDone(const Record& done);

    /// Makes a form that asks for the step `next`, with the reason of refuse(). The kind of page
    /// adds its inputs and buttons.
    void beginForm(Step next);

    /// Makes the form that shows the input, to be confirmed after `question`: one button applies
    /// it, the other one leads back. `colour` is one of TextString's.
    void beginConfirmation(const std::string& question, Text backLabel,
                           int colour = ORVLib::Gui::TextString::PLAIN);

    /// Adds the rows of addShown() and the fields of carry() to the form. REQUIRES: called once.
    void putRows();

    /// Adds the help text with what each of the inputs takes.
    void putHelp(const InputList& inputs = {});

    void putButton(const std::string& marker, Text label);
    void putApplyButton() { putButton("submit", m_applyLabel); }

    /// Makes the page that says that the form was applied.
    void showCompletion();

    /// True when this is the page that says that the form was applied.
    bool isCompleted() const { return m_isCompleted; }

private:
    std::string makeAddress(const std::string& field, const std::string& value) const;
    void putAddress();

    PageContext m_context;
    Function m_function;
    Text m_title;
    Text m_help;
    Text m_purpose;
    std::string m_returnPath;
    std::string m_donePath;
    int m_completion;
    Text m_applyLabel = TEXT_SET;
    std::string m_problem;
    bool m_isCompleted = false;
    std::vector<std::pair<std::string, std::string>> m_address;  ///< fields of the page's address
    FormRequest m_request;
    int m_state;  ///< the library's, which keeps a pointer to it
    std::unique_ptr<LabelledList> m_shown;
    std::unique_ptr<ComponentGroup> m_carried;
};

}  // namespace Console
