// The access control list: shown, with a way to add a row and to remove each.

#include "gui/ORVGUIUtil.h"
#include "shared/backend/Board.h"
#include "shared/component/Components.h"
#include "shared/component/SkeletonPart.h"
#include "shared/input/Form.h"
#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/SettingsPage.h"

using namespace ORVLib::Gui;

namespace {

constexpr char OPERATION[] = "operation";
constexpr char ADD[] = "add";
constexpr char REMOVE[] = "remove";
constexpr char ROW[] = "row";

constexpr int ROW_ADDED = 200;
constexpr int ROW_REMOVED = 201;

/// What a request is about.
Console::Function functionOf(const FormInfo& form) {
    const std::string operation = Console::fieldOf(form, OPERATION);
    if (operation == ADD) {
        return Console::FUNCTION_ADD_ACCESS;
    }
    return operation == REMOVE ? Console::FUNCTION_REMOVE_ACCESS : Console::FUNCTION_ACCESS_LIST;
}

std::string listPath() {
    return ORVGUIUtil::getCGIPath(Console::FUNCTION_ACCESS_LIST);
}

/// An address and its mask bits; a row's text has a slash between them.
struct Row {
    std::string address;
    std::string maskBits;

    std::string getText() const { return address + '/' + maskBits; }
};

std::vector<Row> readList(CGIRequester& requester) {
    std::vector<Row> list;
    const Console::Record record = Console::readRecord(requester, Console::ITEM_ACCESS_LIST);
    for (const auto& row : Console::rowsOf(record, 2)) {
        list.push_back({row[0], row[1]});
    }
    return list;
}

Console::Component makeList(const Console::PageContext& context) {
    const auto text = [&](Console::Text number) { return context.messages.getString(number); };
    auto table = std::make_unique<Console::Table>(
        std::vector<std::string>{text(Console::TEXT_ADDRESS), text(Console::TEXT_MASK_BITS),
                                 text(Console::TEXT_OPERATION)},
        text(Console::TEXT_NO_ACCESS_ROWS));
    for (const Row& row : readList(context.requester)) {
        std::vector<Console::Component> cells;
        cells.push_back(Console::makeText(row.address));
        cells.push_back(Console::makeText(row.maskBits));
        cells.push_back(Console::makeLink(
            Console::addressWith(listPath(), {{OPERATION, REMOVE}, {ROW, row.getText()}}),
            text(Console::TEXT_REMOVE)));
        table->addRow(std::move(cells));
    }
    auto list = std::make_unique<Console::SkeletonPart>("skeleton_list.txt");
    list->putText("title", text(Console::TEXT_ACCESS_LIST));
    list->putSentence("purpose", text(Console::TEXT_ACCESS_LIST_PURPOSE));
    list->put("tabs", Console::makeLink(Console::addressWith(listPath(), {{OPERATION, ADD}}),
                                        text(Console::TEXT_ADD_ACCESS)));
    list->put("content", std::move(table));
    return list;
}

class AddPage : public Console::SettingsPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_ADD_ACCESS;

    explicit AddPage(const Console::PageContext& context)
        : SettingsPage(context, FUNCTION, Console::TEXT_ADD_ACCESS_PURPOSE),
          m_row(add(Console::TEXT_MASKED_ADDRESS, Console::TEXT_WRONG_MASKED_ADDRESS,
                    std::make_unique<Console::MaskedAddressInput>("address"))) {
        carry(OPERATION, ADD);
        setReturnPath(listPath());
        setApplyLabel(Console::TEXT_ADD);
        setCompletion(ROW_ADDED);
    }

protected:
    void readCurrent() override {}

    void apply() override {
        Console::Record record;
        m_row.write(record);
        switch (Console::writeRecord(getRequester(), Console::ITEM_ACCESS_LIST_ADD, record,
                                     {Console::ERROR_EXISTS, Console::ERROR_FULL})) {
            case Console::ERROR_EXISTS:
                mark(m_row, Console::TEXT_ACCESS_EXISTS);
                break;
            case Console::ERROR_FULL:
                refuse(Console::TEXT_ACCESS_LIST_FULL);
                break;
            default:
                break;
        }
    }

private:
    Console::MaskedAddressInput& m_row;
};

/// The page asks, and its button removes: there is nothing to enter.
class RemovePage : public Console::SettingsPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_REMOVE_ACCESS;

    explicit RemovePage(const Console::PageContext& context)
        : SettingsPage(context, FUNCTION, Console::TEXT_REMOVE_ACCESS_PURPOSE),
          m_list(readList(context.requester)),
          m_row(add(Console::TEXT_MASKED_ADDRESS, Console::TEXT_NO_SUCH_ACCESS,
                    std::make_unique<Console::ChosenInput>(ROW))) {
        for (const Row& row : m_list) {
            m_row.addOption(row.getText(), row.getText());
        }
        carry(OPERATION, REMOVE);
        setReturnPath(listPath());
        setApplyLabel(Console::TEXT_REMOVE);
        setCompletion(ROW_REMOVED);
    }

protected:
    bool isConfirmed() const override { return false; }

    void readCurrent() override {
        m_row.submit(getContext().form);
        if (m_row.isError()) {
            mark(m_row);
        }
    }

    void apply() override {
        for (const Row& row : m_list) {
            if (row.getText() == m_row.getText()) {
                remove(row);
            }
        }
    }

private:
    void remove(const Row& row) {
        Console::Record record;
        record.add(row.address);
        record.add(row.maskBits);
        if (Console::writeRecord(getRequester(), Console::ITEM_ACCESS_LIST_REMOVE, record,
                                 {Console::ERROR_NOT_FOUND}) != 0) {
            mark(m_row);
        }
    }

    std::vector<Row> m_list;
    Console::ChosenInput& m_row;
};

class AccessListMain : public Console::ConsoleMain {
public:
    explicit AccessListMain(FormInfo& form) : ConsoleMain(form, Console::FUNCTION_ACCESS_LIST) {}

protected:
    Console::Function getFunction() const override { return functionOf(*m_formInfo); }

    Console::Component makeBody(const Console::PageContext& context) override {
        switch (getFunction()) {
            case Console::FUNCTION_ADD_ACCESS:
                return Console::makePage<AddPage>(context);
            case Console::FUNCTION_REMOVE_ACCESS:
                return Console::makePage<RemovePage>(context);
            default:
                return makeList(context);
        }
    }
};

}  // namespace

int main() {
    return Console::runProgram<AccessListMain>();
}
