#pragma once

#include <memory>
#include <string>
#include <type_traits>

#include "gui/HTMLCodeGenerator.h"
#include "gui/HTMLMapUtil.h"
#include "gui/MessageMgr.h"
#include "orv/OrvTrace.h"

namespace ORVLib::Gui {

/// The base of a configuration page: a part of a page, for the "body" marker, with a skeleton and
/// components of its own.
///
/// A configuration takes several requests of the same program. Each form carries a page state as a
/// hidden field, and the state of a request, together with its method, decides what makePage()
/// does. A program fills the page in makeDispPage() and carries the configuration out in
/// makeConfigPage().
class ORVGUI_EXPORT CommonDefaultPage : public HTMLComponent {
public:
    /// In a POST, this state means: carry out what was submitted. Everything else is displayed.
    static constexpr int STATE_CONFIGURE = 2;
    static constexpr int STATE_CONFIRM = 3;
    static constexpr int STATE_COMPLETE = 4;

    /// What getNextPageState() answers when a page leads nowhere.
    static constexpr int NO_NEXT_STATE = -1;

    ~CommonDefaultPage() override;
    CommonDefaultPage(const CommonDefaultPage&) = delete;
    CommonDefaultPage& operator=(const CommonDefaultPage&) = delete;

    void printHTML() const override;
    bool isError() const override;

    /// Builds the form.
    virtual void makeDispPage();

    /// Carries out the submitted configuration. Only a POST comes here; whether its user may do
    /// this and its values are valid is the page's to check.
    virtual void makeConfigPage();

    /// The state after `state`: 2 leads to 3; 3 leads to 4, or stays when the form is shown again;
    /// 0 stays. Every other state leads to NO_NEXT_STATE.
    int getNextPageState(int state, bool redisplay);

    /// Calls makeConfigPage() or makeDispPage(). Reads the request through FormInfo::myInstance,
    /// and makes that when there is none yet.
    void makePage();

    /// Puts the hidden field that carries the state after `*state` into the page. A state that
    /// leads to 0 or nowhere adds none, and so does null.
    void addNextPageItem(int* state, bool redisplay) { addNextState(state, redisplay); }

    /// As above. A template, so that nullptr is not ambiguous.
    template <typename State, typename = std::enable_if_t<std::is_same_v<State, const int>>>
    void addNextPageItem(State* state, bool redisplay) {
        addNextState(state, redisplay);
    }

    /// Turns the page into the completion page: a title, the operator message `messageId` and an
    /// OK button that runs the script `onClick`, which brings its own quotes.
    void setComplPageItemToMap(const std::string& title, const std::string& onClick, int messageId);

    /// The page's name in the trace log.
    int getPageId() const { return m_pageId; }

protected:
    /// `messages` and `pageState`, which may be null, are not owned and must outlive the page.
    /// `pageId` names the page in the trace log.
    CommonDefaultPage(MessageMgr& messages, int pageId, const int* pageState,
                      const std::string& skeletonFileName);

    /// What the page is made with: its texts, its components by marker, the generator that prints
    /// them, its writer of the trace log.
    MessageMgr& getMessages() const { return *m_messages; }
    ComponentMap& getMap() { return m_map; }
    HTMLCodeGenerator& getGenerator() { return *m_generator; }
    trace::OrvTrace& getTrace() { return m_trace; }

    /// 0 when the page has none.
    int getPageState() const { return m_pageState != nullptr ? *m_pageState : 0; }

    /// What isError() answers.
    void setError(bool error) { m_error = error; }

    /// A flag and a text for the derived page's own use.
    bool getFlag() const { return m_flag; }
    void setFlag(bool flag) { m_flag = flag; }
    const std::string& getText() const { return m_text; }
    void setText(const std::string& text) { m_text = text; }

private:
    void addNextState(const int* state, bool redisplay);

    std::unique_ptr<HTMLCodeGenerator> m_generator;
    MessageMgr* m_messages;
    ComponentMap m_map;
    trace::OrvTrace m_trace;
    const int* m_pageState;
    int m_pageId;
    bool m_error = false;
    bool m_flag = false;
    std::string m_text;
};

}  // namespace ORVLib::Gui
