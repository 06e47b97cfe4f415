#pragma once

#include <string>

#include "framework/page/FormPage.h"

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
class UploadPage : public FormPage {
public:
    /// True when the page has done what the user confirmed. REQUIRES: makePage() was called.
    bool isCompleted() const { return getStep() == Step::APPLY && !isRefused(); }

protected:
    /// `file` is what the input is called, `notice` what is asked before apply().
    UploadPage(const PageContext& context, Function function, Text purpose, Text file, Text notice);

    /// Looks at the file at `path`, keeps or carries what apply() needs, and adds rows that show
    /// what it is; or says with refuse() why it is of no use.
    virtual void receive(const std::string& path) = 0;

    /// Does what the user has confirmed, or says with refuse() why it cannot be done.
    virtual void apply() = 0;

    /// Forgets what receive() kept for a user who does not confirm.
    virtual void drop() {}

    /// What stands above the form. Null for nothing.
    virtual Component makePresent() { return nullptr; }

    /// What a field carried; empty without it.
    std::string getCarried(const std::string& name) const;

    /// A size as it is shown.
    std::string sizeText(unsigned long bytes);

private:
    void makeDispPage() final;
    void makeConfigPage() final;

    void receiveFile();
    void showForm(const std::string& notice);
    void showConfirmation();

    Text m_file;
    Text m_notice;
};

}  // namespace Console
