#pragma once

#include <memory>
#include <utility>

#include "framework/access/Functions.h"
#include "framework/page/PageContext.h"
#include "framework/page/PageMain.h"

namespace Console {

/// The main object of a page that needs a session: goes on only with a valid one and with the
/// right to the page's function.
class ConsoleMain : public PageMain {
protected:
    /// Who may see the page, unless `access` says otherwise, is what the table of rights has for
    /// `function`. REQUIRES: the function's entry says the same as `access`.
    ConsoleMain(ORVLib::Gui::FormInfo& form, Function function, Access access = Access::BY_TABLE)
        : PageMain(form, function), m_function(function), m_access(access) {}

    /// Makes the page's body. Messages, language and rights are the user's by now.
    virtual std::unique_ptr<ORVLib::Gui::HTMLComponent> makeBody(const PageContext& context) = 0;

    virtual Text getTitle() const { return entryOf(getFunction()).title; }

    /// True for a page that reloads itself: it must not keep its user's session alive.
    virtual bool isSelfRefreshing() const { return false; }

    /// Fills in the partition of a page that works on one.
    virtual void choosePartition(PageContext&) {}

    /// The error page ends the process: a page never goes on without session or right.
    using AbstractMain::errorExit;
    void errorExit(std::string title, int code) final;

    /// The function whose right counts. A page that has several chooses here, by the request, which
    /// has been read whole by then, as it may not be when the page is made.
    virtual Function getFunction() const { return m_function; }

private:
    int execMain() override;
    void requireRight(const PageContext& context);

    Function m_function;
    Access m_access;
};

/// Makes a settings page from its arguments, and what it shows.
template <typename Page, typename... Arguments>
std::unique_ptr<ORVLib::Gui::HTMLComponent> makePage(Arguments&&... arguments) {
    auto page = std::make_unique<Page>(std::forward<Arguments>(arguments)...);
    page->makePage();
    return page;
}

/// The main object of a page whose body is a settings page: made from a PageContext, shown after
/// its makePage(). `Page::FUNCTION` says which function it is; it goes by the table of rights.
template <typename Page, typename Main = ConsoleMain>
class SettingsMain : public Main {
public:
    explicit SettingsMain(ORVLib::Gui::FormInfo& form) : Main(form, Page::FUNCTION) {}

protected:
    std::unique_ptr<ORVLib::Gui::HTMLComponent> makeBody(const PageContext& context) override {
        return makePage<Page>(context);
    }
};

}  // namespace Console
