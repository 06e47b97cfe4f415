#pragma once

#include <memory>
#include <string>

#include "catalogue/Texts.h"
#include "gui/AbstractMain.h"
#include "gui/FormInfo.h"

namespace Console {

/// The main object of a page: puts the console's page chrome around the page's body.
class PageMain : public ORVLib::Gui::AbstractMain {
protected:
    /// `module` names the page in the trace log.
    PageMain(ORVLib::Gui::FormInfo& form, int module) : AbstractMain(&form, module) {}

    /// Takes the language from the form field "language": for pages that know no user.
    void chooseLanguage();

    /// Makes messages and page chrome. REQUIRES: the language is the user's by now.
    void beginPage(Text title);

    /// Lets the body be a file that the browser saves, in place of a page: nothing stands around
    /// it. REQUIRES: beginPage() was called; `fileName` is of letters, digits, "-", "_" and ".".
    void answerWithFile(const std::string& fileName);

    /// Prints the page. REQUIRES: beginPage() was called.
    void printPage(std::unique_ptr<ORVLib::Gui::HTMLComponent> body);
};

}  // namespace Console
