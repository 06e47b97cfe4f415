#pragma once

#include <memory>
#include <string>
#include <type_traits>

#include "gui/HTMLCodeGenerator.h"
#include "gui/HTMLMapUtil.h"
#include "gui/MessageMgr.h"
#include "orv/OrvTrace.h"

namespace ORVLib::Gui {

/// The body of a configuration page, with a skeleton and components of its own. It is a component,
/// usually at the marker "body" of an HTMLPage.
///
/// A configuration takes several requests to the same program: form, confirmation, completion. Each
/// form carries the page state in a hidden field. makePage() calls makeConfigPage() for a POST in
/// STATE_CONFIGURE and makeDispPage() for every other request.
///
/// @code
/// class NamePage : public CommonDefaultPage {
/// public:
///     NamePage(MessageMgr& messages, const int* state)
///         : CommonDefaultPage(messages, 7, state, "/usr/local/www/skel/skeleton_name.txt") {}
///     void makeDispPage() override {
///         HTMLMapUtil::insertIntoMap(getMap(), "input", new TextField("name"));
///     }
///     void makeConfigPage() override { setComplPageItemToMap("Name", "\"history.back()\"", 1); }
/// };
/// @endcode
class ORVGUI_EXPORT CommonDefaultPage : public HTMLComponent {
public:
    /// Page states. A POST in STATE_CONFIGURE applies the submitted configuration.
    static constexpr int STATE_CONFIGURE = 2;
    static constexpr int STATE_CONFIRM = 3;
    static constexpr int STATE_COMPLETE = 4;

    /// Result of getNextPageState() for a state without a successor.
    static constexpr int NO_NEXT_STATE = -1;

    ~CommonDefaultPage() override;
    CommonDefaultPage(const CommonDefaultPage&) = delete;
    CommonDefaultPage& operator=(const CommonDefaultPage&) = delete;

    void printHTML() const override;
    bool isError() const override;

    /// Builds the form. Does nothing unless overridden.
    virtual void makeDispPage();

    /// Applies the submitted configuration. Called for a POST only. The override must check the
    /// user's right and the values. Does nothing unless overridden.
    virtual void makeConfigPage();

    /// The state after `state`: 3 after 2; 4 after 3, or 3 again with `redisplay`; 0 after 0;
    /// NO_NEXT_STATE after any other.
    int getNextPageState(int state, bool redisplay);

    /// Calls makeConfigPage() or makeDispPage(), by the request's method and the page state. Takes
    /// the request from FormInfo::myInstance, and creates that when it is null.
    void makePage();

    /// Adds the hidden field that carries the state after `*state`. Adds none for null or when
    /// that state is 0 or NO_NEXT_STATE.
    void addNextPageItem(int* state, bool redisplay) { addNextState(state, redisplay); }

    /// As above, for a constant state. A template, so that nullptr is not ambiguous.
    template <typename State, typename = std::enable_if_t<std::is_same_v<State, const int>>>
    void addNextPageItem(State* state, bool redisplay) {
        addNextState(state, redisplay);
    }

    /// Turns the page into the completion page: a title, the operator message `messageId`, and an
    /// OK button that runs the script `onClick`, which includes its quotes.
    void setComplPageItemToMap(const std::string& title, const std::string& onClick, int messageId);

    /// The page's number in the trace log.
    int getPageId() const { return m_pageId; }

protected:
    /// `messages` and `pageState` are not owned and must outlive the page. `pageState` may be null,
    /// which counts as state 0. `pageId` is the page's number in the trace log. `skeletonFileName`
    /// is a whole path.
    CommonDefaultPage(MessageMgr& messages, int pageId, const int* pageState,
                      const std::string& skeletonFileName);

    /// The page's texts, its components by marker, the generator that prints them, and its writer
    /// of the trace log.
    MessageMgr& getMessages() const { return *m_messages; }
    ComponentMap& getMap() { return m_map; }
    HTMLCodeGenerator& getGenerator() { return *m_generator; }
    trace::OrvTrace& getTrace() { return m_trace; }

    /// The current page state; 0 when the page has none.
    int getPageState() const { return m_pageState != nullptr ? *m_pageState : 0; }

    /// Sets the result of isError().
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
