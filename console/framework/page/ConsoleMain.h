#pragma once

#include <memory>
#include <utility>

#include "framework/access/Functions.h"
#include "framework/access/Rights.h"
#include "framework/component/ListPart.h"
#include "framework/page/SessionMain.h"

namespace Console {

/// The main object of a function's page. Without the right to the function, the error page ends the
/// process. The page of a function of the menu "Partition" works on one partition: the one that the
/// request names, otherwise the first that the user may use the function on.
class ConsoleMain : public SessionMain {
protected:
    ConsoleMain(ORVLib::Gui::FormInfo& form, Function function)
        : SessionMain(form, moduleOf(function)), m_function(function) {}

    /// Makes the page's body.
    virtual Component makeBody(const PageContext& context) = 0;

    /// Makes the body of a page that shows data, with the title and the help text of a function.
    static std::unique_ptr<ListPart> makeListPart(Function function, Text purpose,
                                                  Component content);
    static std::unique_ptr<ListPart> makeListPart(Function function, const std::string& purpose,
                                                  Component content);

    /// Sets the title of the window, and the page's name in the strip.
    void setTitle(Text title);

    virtual Text getTitle() const { return entryOf(getFunction()).title; }

    /// True for a page that reloads itself at the user's interval, which does not keep the session
    /// alive.
    virtual bool isSelfRefreshing() const { return false; }

    /// The function whose right is needed. A page with several functions overrides this and chooses
    /// by the request. The request is complete only after the constructor.
    virtual Function getFunction() const { return m_function; }

private:
    std::vector<Text> getRoles() const final { return rolesFor(getFunction()); }
    void showPage(PageContext& context) final;
    bool isSessionRenewed() const final { return !isSelfRefreshing(); }

    void putOutline(const PageContext& context);

    Function m_function;
    std::string m_title;
};

/// Makes a settings page from its arguments, and its content.
template <typename Page, typename... Arguments>
std::unique_ptr<Page> makePage(Arguments&&... arguments) {
    auto page = std::make_unique<Page>(std::forward<Arguments>(arguments)...);
    page->makePage();
    return page;
}

/// As makePage(), for a page that changes network settings: it shows those that wait to be
/// confirmed.
template <typename Page>
std::unique_ptr<Page> makeNetworkPage(const PageContext& context) {
    auto page = makePage<Page>(context);
    if (context.redirect.empty()) {
        page->putProbation();
    }
    return page;
}

/// The main object of a page whose body is a settings page, which is made from a PageContext.
template <typename Page, Function FUNCTION = Page::FUNCTION>
class SettingsMain : public ConsoleMain {
public:
    explicit SettingsMain(ORVLib::Gui::FormInfo& form) : ConsoleMain(form, FUNCTION) {}

protected:
    Component makeBody(const PageContext& context) override { return makePage<Page>(context); }
};

/// As SettingsMain, for a page of makeNetworkPage().
template <typename Page>
class NetworkMain : public SettingsMain<Page> {
public:
    using SettingsMain<Page>::SettingsMain;

protected:
    Component makeBody(const PageContext& context) override {
        return makeNetworkPage<Page>(context);
    }
};

}  // namespace Console
