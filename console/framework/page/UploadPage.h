#pragma once

#include <string>

#include "framework/page/FormPage.h"

namespace Console {

/// A page that takes a file, shows its data, and does something with it after the user confirms.
/// PageStep.h has its steps; "back" drops the file.
///
/// The uploaded file is deleted at the end of the request that brings it: receive() sends it to the
/// board, or carries it in the form.
class UploadPage : public FormPage {
protected:
    /// `file` is the label of the input, `notice` the question before apply().
    UploadPage(const PageContext& context, Function function, Text purpose, Text file, Text notice);

    /// Checks the file at `path`, stores or carries what apply() needs, and adds rows with its
    /// data; or says with refuse() why it cannot be used.
    virtual void receive(const std::string& path) = 0;

    /// Does what the user has confirmed, or says with refuse() why it cannot be done.
    virtual void apply() = 0;

    /// Deletes what receive() stored, for a user who does not confirm.
    virtual void drop() {}

    /// A component above the form. Null for nothing.
    virtual Component makePresent() { return nullptr; }

    /// A size in bytes, with its unit.
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
