// Looks for events. Nothing is stored: the whole question stands in the page's address.

#include "gui/ORVGUIUtil.h"
#include "gui/SubmitButton.h"
#include "shared/component/Components.h"
#include "shared/component/SkeletonPart.h"
#include "shared/input/DateInput.h"
#include "shared/input/InputList.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "system/EventList.h"

using namespace ORVLib::Gui;

namespace {

/// What to look for.
class SearchForm {
public:
    explicit SearchForm(const Console::PageContext& context)
        : m_messages(context.messages),
          m_severity(add(Console::TEXT_LOWEST_SEVERITY, Console::TEXT_WRONG_CHOICE,
                         Console::makeSeverityInput(context))),
          m_source(add(Console::TEXT_SOURCE, Console::TEXT_WRONG_CHOICE,
                       Console::makeSourceInput(context))),
          m_firstDay(addDay(Console::TEXT_EARLIEST_DAY, "first")),
          m_lastDay(addDay(Console::TEXT_LATEST_DAY, "last")),
          m_count(add(Console::TEXT_EVENT_COUNT, Console::TEXT_WRONG_EVENT_COUNT,
                      Console::makeCountInput())) {
        m_severity.setText("info");
        m_count.setText("50");
    }

    /// Takes what the user sent. Returns false when some of it is wrong, which is marked then.
    bool submit(const FormInfo& form) {
        m_inputs.submit(form);
        m_inputs.check();
        if (!m_inputs.isAnyMarked() && !m_lastDay.isEmpty() &&
            m_lastDay.getText() < m_firstDay.getText()) {
            m_inputs.mark(m_lastDay, Console::TEXT_DAYS_REVERSED);
        }
        return !m_inputs.isAnyMarked();
    }

    /// REQUIRES: submit() found nothing wrong.
    Console::EventQuery getQuery() const {
        return {m_severity.getText(), m_source.getText(), m_firstDay.getText(),
                m_lastDay.getText(),  m_count.getText(),  ""};
    }

    Console::Component makeView() const {
        return std::make_unique<Console::InputListView>(m_inputs, m_messages);
    }

private:
    template <typename Kind>
    Kind& add(Console::Text label, Console::Text hint, std::unique_ptr<Kind> input) {
        return m_inputs.add(m_messages.getString(label), hint, std::move(input));
    }

    Console::DateInput& addDay(Console::Text label, const char* name) {
        return add(label, Console::TEXT_WRONG_OPTIONAL_DAY,
                   std::make_unique<Console::DateInput>(name, true));
    }

    MessageMgr& m_messages;
    Console::InputList m_inputs;
    Console::ChoiceInput& m_severity;
    Console::ChoiceInput& m_source;
    Console::DateInput& m_firstDay;
    Console::DateInput& m_lastDay;
    Console::NumberInput& m_count;
};

class SearchMain : public Console::ConsoleMain {
public:
    explicit SearchMain(FormInfo& form) : ConsoleMain(form, Console::FUNCTION_EVENT_SEARCH) {}

protected:
    std::unique_ptr<HTMLComponent> makeBody(const Console::PageContext& context) override {
        m_search = std::make_unique<SearchForm>(context);
        const bool isAsked = context.form.getFields().count(Console::SEVERITY_FIELD) != 0;
        const bool isWrong = isAsked && !m_search->submit(context.form);
        auto body = std::make_unique<Console::SkeletonPart>("skeleton_list.txt");
        body->putText("title", text(getTitle()));
        body->putSentence("purpose", text(Console::TEXT_EVENT_SEARCH_PURPOSE));
        if (isWrong) {
            body->put("error", Console::makeSentence(text(Console::TEXT_SOME_WRONG),
                                                     TextString::ERROR_COLOUR));
        }
        body->put("content", makeSearch(isAsked && !isWrong ? makeResult(context) : nullptr));
        return body;
    }

private:
    Console::Component makeSearch(Console::Component result) {
        auto search = std::make_unique<Console::SkeletonPart>("skeleton_search.txt");
        search->putText("path", ORVGUIUtil::getCGIPath(getFunction()));
        search->put("entries", m_search->makeView());
        search->put("submit", std::make_unique<SubmitButton>("search", text(Console::TEXT_SEARCH)));
        if (result) {
            search->put("result", std::move(result));
        }
        return search;
    }

    Console::Component makeResult(const Console::PageContext& context) {
        Console::EventQuery query = m_search->getQuery();
        FormInfo::FieldMap fields = context.form.getFields();
        query.before = Console::readBefore(context.form);
        fields.erase(Console::BEFORE_FIELD);
        return Console::makeEventList(context, query, ORVGUIUtil::getCGIPath(getFunction()),
                                      {fields.begin(), fields.end()});
    }

    std::string text(Console::Text number) { return m_messages->getString(number); }

    /// Outlives the page, which shows it.
    std::unique_ptr<SearchForm> m_search;
};

}  // namespace

int main() {
    return Console::runProgram<SearchMain>();
}
