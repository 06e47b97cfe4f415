#pragma once

#include <memory>
#include <string>

#include "gui/CommonDefaultPage.h"
#include "shared/Components.h"
#include "shared/Functions.h"
#include "shared/PageContext.h"
#include "shared/PageStep.h"

namespace Console {

/// A page that takes a file, shows what it is, and does something with it that the user confirms.
///
/// What a request does hangs on the "page_state" that its form carried, and on its method:
///
///     none, or a GET   the form that asks for a file; carries 3
///     "back", any      the form; what was kept of the file is dropped
///     3                a file of use: what it is, to be confirmed; carries 4
///                      otherwise the form again, with the reason; carries 3
///     4                done, then the completion page; otherwise the form, with the reason
///
/// A form that did not arrive whole, or is not of this session, counts as none, and the page says
/// so.
///
/// The uploaded file itself ends with the request that brings it. receive() hands it to the board,
/// or carries it on.
class UploadPage : public ORVLib::Gui::CommonDefaultPage {
public:
    /// True when the page has done what the user confirmed. REQUIRES: makePage() was called.
    bool isCompleted() const { return m_completed; }

protected:
    /// Title and place of the page are the function's; `purpose` says what it is for.
    UploadPage(const PageContext& context, Function function, Text purpose);

    /// Looks at the file at `path`, keeps what apply() needs, and describes it for the
    /// confirmation; or says with refuse() why it is of no use.
    virtual void receive(const std::string& path) = 0;

    /// Does what the user has confirmed, or says with refuse() why it cannot be done.
    virtual void apply() = 0;

    /// Forgets what receive() kept for a user who does not confirm.
    virtual void drop() {}

    /// What stands above the form. Null for nothing.
    virtual Component makePresent() { return nullptr; }

    /// Says what the file is. To be confirmed, beside `label`.
    void describe(Text label, const std::string& value);

    /// Adds a field that the confirmation carries to apply().
    void carry(const std::string& name, const std::string& value);

    /// What a field carried; empty without it.
    std::string getCarried(const std::string& name) const;

    /// Says why the file is of no use. `detail` follows in parentheses when it is not empty.
    void refuse(Text reason, const std::string& detail = "");
    bool isRefused() const { return !m_problem.empty(); }

    /// The operator message of the completion page, and where its button leads.
    void setCompletion(int messageId, const std::string& path);

    /// What the input and the button that applies are called, and what is said above that.
    void setLabels(Text file, Text apply, Text notice);

    /// A catalogue text in the user's language.
    std::string text(Text number) { return getMessages().getString(number); }

    /// A size as it is shown.
    std::string sizeText(unsigned long bytes);

    ORVLib::Gui::CGIRequester& getRequester() const { return m_context.requester; }
    const PageContext& getContext() const { return m_context; }

private:
    void makeDispPage() final;
    void makeConfigPage() final;

    void receiveFile();
    void showForm(const std::string& notice);
    void showConfirmation();
    void beginForm(const int* state);
    void putTexts();
    void putButton(const std::string& marker, Text label);

    PageContext m_context;
    Function m_function;
    Text m_purpose;
    Step m_step;
    int m_state;
    std::string m_problem;
    std::unique_ptr<Facts> m_facts;
    std::unique_ptr<Sequence> m_carried;
    std::string m_returnPath;
    int m_completion = 0;
    bool m_completed = false;
    Text m_fileLabel = TEXT_UPLOADED_FILE;
    Text m_applyLabel = TEXT_SET;
    Text m_notice = TEXT_PLEASE_CONFIRM;
};

}  // namespace Console
