// Network settings that wait to be confirmed: keeps them, or restores the old ones.

#include "framework/page/Probation.h"
#include "framework/backend/Board.h"
#include "framework/component/Help.h"
#include "framework/component/ListPart.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/PageStep.h"
#include "framework/page/Program.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr Function BACKUP = functionOf(TEXT_BACKUP);

/// How the board is reached by the present settings.
Component makePresent(CGIRequester& requester) {
    const Record addresses = readRecord(requester, ITEM_ADDRESSES);
    const Record services = readRecord(requester, ITEM_SERVICES);
    RecordReader address(addresses);
    RecordReader service(services);
    auto rows = std::make_unique<LabelledList>();
    rows->add(text(TEXT_HOST_NAME), address.next());
    const std::string number = address.next();
    rows->add(text(TEXT_MASKED_ADDRESS), number + '/' + address.next());
    for (const char* const name : {"HTTP", "HTTPS"}) {
        const bool isOn = service.next() == "1";
        const std::string port = service.next();
        rows->add(name, isOn ? port : text(TEXT_OFF));
    }
    return rows;
}

/// For the users who can change the settings: with a backup, technical staff, too.
class ProbationMain : public ConsoleMain {
public:
    explicit ProbationMain(FormInfo& form) : ConsoleMain(form, BACKUP) {}

protected:
    Function getFunction() const override {
        return m_authority.isSystemAdmin() ? functionOf(TEXT_ADDRESSES) : BACKUP;
    }

    Text getTitle() const override { return TEXT_PROBATION; }

    Component makeBody(const PageContext& context) override {
        std::string problem;
        if (m_formInfo->isPostMethod()) {
            problem = carryOut(context);
            if (problem.empty()) {
                context.redirect = PROBATION_PATH;
                return std::make_unique<ComponentGroup>();
            }
        }
        Component notice = makeProbationNotice(context.requester, problem);
        auto list = std::make_unique<ListPart>(
            TEXT_PROBATION, text(notice ? TEXT_PROBATION_PURPOSE : TEXT_NO_PROBATION),
            makePresent(context.requester));
        list->put("help", std::make_unique<Help>(TEXT_HELP_PROBATION));
        if (notice) {
            list->put("probation", std::move(notice));
        } else if (!problem.empty()) {
            list->put("error", makeSentence(problem, TextString::ERROR_COLOUR));
        }
        return list;
    }

private:
    /// Returns what is wrong; nothing when the form was carried out.
    std::string carryOut(const PageContext& context) const {
        if (!isOwnForm(context.form, context.requester, moduleOf(getFunction()))) {
            return text(TEXT_FORM_CUT_OFF);
        }
        const std::string revision = getField(PROBATION_FIELD);
        const auto& fields = m_formInfo->getFields();
        const bool isUndone = fields.count(UNDO_FIELD) != 0;
        if (!isUndone && fields.count(KEEP_FIELD) == 0) {
            return text(TEXT_FORM_CUT_OFF);
        }
        switch (isUndone ? undoSettings(context.requester, revision)
                         : keepSettings(context.requester, revision)) {
            case 0:
                return "";
            case ERROR_NOT_REACHED:
                return text(TEXT_NOT_REACHED);
            default:
                return text(TEXT_PROBATION_OVER);
        }
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::ProbationMain>();
}
