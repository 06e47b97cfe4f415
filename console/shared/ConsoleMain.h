#pragma once

#include <memory>

#include "shared/Functions.h"
#include "shared/PageMain.h"

namespace ORVLib::Gui {
class CGIRequester;
}

namespace Console {

/// The main object of a page that needs a session: goes on only with a valid one and with the
/// right to the page's function.
class ConsoleMain : public PageMain {
protected:
    ConsoleMain(ORVLib::Gui::FormInfo& form, Function function, Text title)
        : PageMain(form, function), m_function(function), m_title(title) {}

    /// Makes the page's body. Messages, language and rights are the user's by now.
    virtual std::unique_ptr<ORVLib::Gui::HTMLComponent> makeBody(
        ORVLib::Gui::CGIRequester& requester) = 0;

    /// The error page ends the process: a page never goes on without session or right.
    using AbstractMain::errorExit;
    void errorExit(std::string title, int code) final;

private:
    int execMain() override;
    void requireRight(ORVLib::Gui::CGIRequester& requester);

    Function m_function;
    Text m_title;
};

}  // namespace Console
