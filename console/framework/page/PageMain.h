#pragma once

#include <string>
#include <vector>

#include "framework/access/Module.h"
#include "framework/component/Components.h"
#include "framework/component/PageText.h"
#include "gui/AbstractMain.h"
#include "gui/FormInfo.h"

namespace Console {

/// The main object of a page: prints the title, the style sheet and the frame of every page around
/// the page's body.
class PageMain : public ORVLib::Gui::AbstractMain {
public:
    ~PageMain() override;  // not inline: each page would have a copy of this class's tables

protected:
    PageMain(ORVLib::Gui::FormInfo& form, Module module)
        : AbstractMain(&form, static_cast<int>(module)) {}

    /// The value of a field of the request; empty without it.
    std::string getField(const std::string& name) const;

    /// Takes the language from the form field "language": for pages without a user.
    void chooseLanguage();

    /// Takes the language of the board, for pages without a user. When the board does not answer in
    /// two seconds, takes the first one of the browser, and returns false.
    bool askLanguage();

    /// Loads the texts. REQUIRES: the language is the user's.
    void loadTexts();

    /// Makes the page, and loads the texts unless loadTexts() did. REQUIRES: the language is the
    /// user's.
    void beginPage(Text title);

    /// Makes the body a file that the browser saves, without a page around it. REQUIRES:
    /// beginPage() was called; `fileName` has only letters, digits, "-", "_" and ".".
    void answerWithFile(const std::string& fileName);
    bool isAnsweredWithFile() const { return m_isFile; }

    /// Prints the page. REQUIRES: beginPage() was called.
    void printPage(Component body);

    /// Shows the console's error page and ends the process with status -1: no page continues
    /// without a session or a right. Without texts yet, the page is in both languages.
    using AbstractMain::errorExit;
    void errorExit(std::string title, int code) final;

    /// The roles that may use the page. None for a page that everybody may use.
    virtual std::vector<Text> getRoles() const { return {}; }

    std::string m_redirect;  ///< see PageContext

private:
    bool m_isFile = false;
};

}  // namespace Console
