// Searches the event log. The query is in the page's address and is not stored.

#include "framework/input/DateInput.h"
#include "framework/input/InputList.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "gui/ORVGUIUtil.h"
#include "gui/SubmitButton.h"
#include "pages/system/EventList.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

/// The inputs of a search.
class SearchForm {
public:
    SearchForm()
        : m_severity(add(TEXT_LOWEST_SEVERITY, TEXT_WRONG_CHOICE, makeSeverityInput())),
          m_source(add(TEXT_SOURCE, TEXT_WRONG_CHOICE, makeSourceInput())),
          m_firstDay(addDay(TEXT_EARLIEST_DAY, "first")),
          m_lastDay(addDay(TEXT_LATEST_DAY, "last")),
          m_count(add(TEXT_EVENT_COUNT, TEXT_WRONG_EVENT_COUNT, makeCountInput())) {
        m_severity.setText("info");
        m_count.setText("50");
    }

    /// Takes the values that the user sent. Marks wrong ones, and returns false then.
    bool submit(const FormInfo& form) {
        m_inputs.submit(form.getFields());
        m_inputs.check();
        if (!m_inputs.isAnyMarked() && !m_lastDay.isEmpty() &&
            m_lastDay.getText() < m_firstDay.getText()) {
            m_inputs.mark(m_lastDay, TEXT_DAYS_REVERSED);
        }
        return !m_inputs.isAnyMarked();
    }

    /// REQUIRES: submit() found nothing wrong.
    EventQuery getQuery() const {
        return {m_severity.getText(), m_source.getText(), m_firstDay.getText(),
                m_lastDay.getText(),  m_count.getText(),  ""};
    }

    void describe(Help& help) const { m_inputs.describe(help); }

    Component makeView() const { return std::make_unique<InputListView>(m_inputs); }

private:
    template <typename Kind>
    Kind& add(Text label, Text hint, std::unique_ptr<Kind> input) {
        return m_inputs.add(text(label), hint, std::move(input));
    }

    DateInput& addDay(Text label, const char* name) {
        return add(label, TEXT_WRONG_OPTIONAL_DAY, std::make_unique<DateInput>(name, true));
    }

    InputList m_inputs;
    ChoiceInput& m_severity;
    ChoiceInput& m_source;
    DateInput& m_firstDay;
    DateInput& m_lastDay;
    NumberInput& m_count;
};

class SearchMain : public ConsoleMain {
public:
    explicit SearchMain(FormInfo& form) : ConsoleMain(form, functionOf(TEXT_EVENT_SEARCH)) {}

protected:
    Component makeBody(const PageContext& context) override {
        m_search = std::make_unique<SearchForm>();
        const bool isAsked = context.form.getFields().count(SEVERITY_FIELD) != 0;
        const bool isWrong = isAsked && !m_search->submit(context.form);
        auto body = makeListPart(getFunction(), TEXT_EVENT_SEARCH_PURPOSE,
                                 makeSearch(isAsked && !isWrong ? makeResult(context) : nullptr));
        auto help = std::make_unique<Help>(entryOf(getFunction()).help);
        m_search->describe(*help);
        body->put("help", std::move(help));
        if (isWrong) {
            body->putError(TEXT_SOME_WRONG);
        }
        return body;
    }

private:
    Component makeSearch(Component result) {
        auto search = std::make_unique<SkeletonPart>("skeleton_search.txt");
        search->putText("path", ORVGUIUtil::getCGIPath(getFunction()));
        search->put("entries", m_search->makeView());
        search->put("submit", std::make_unique<SubmitButton>("search", text(TEXT_SEARCH)));
        if (result) {
            search->put("result", std::move(result));
        }
        return search;
    }

    Component makeResult(const PageContext& context) {
        EventQuery query = m_search->getQuery();
        FormInfo::FieldMap fields = context.form.getFields();
        query.before = readBefore(context.form);
        fields.erase(BEFORE_FIELD);
        return makeEventList(context, query, ORVGUIUtil::getCGIPath(getFunction()),
                             {fields.begin(), fields.end()});
    }

    /// The page refers to it.
    std::unique_ptr<SearchForm> m_search;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SearchMain>();
}
