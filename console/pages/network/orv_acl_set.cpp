// The access control list, and the pages that add a row and remove one.

#include "framework/backend/Board.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Probation.h"
#include "framework/page/Program.h"
#include "framework/page/SettingsPage.h"
#include "gui/ORVGUIUtil.h"
#include "pages/network/LostWay.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char OPERATION[] = "operation";
constexpr char ADD[] = "add";
constexpr char REMOVE[] = "remove";
constexpr char ROW[] = "row";

constexpr int ROW_ADDED = 200;
constexpr int ROW_REMOVED = 201;

constexpr Function LIST_FUNCTION = functionOf(TEXT_ACCESS_LIST);
constexpr Function ADD_FUNCTION = functionOf(TEXT_ADD_ACCESS);
constexpr Function REMOVE_FUNCTION = functionOf(TEXT_REMOVE_ACCESS);

std::string listPath() {
    return ORVGUIUtil::getCGIPath(LIST_FUNCTION);
}

std::vector<AccessRow> readList(CGIRequester& requester) {
    std::vector<AccessRow> list;
    const Record record = readRecord(requester, ITEM_ACCESS_LIST);
    for (const auto& row : rowsOf(record, 2)) {
        list.push_back({row[0], row[1]});
    }
    return list;
}

Component makeTable(const std::vector<AccessRow>& rows) {
    auto table = std::make_unique<Table>(
        std::initializer_list<Text>{TEXT_ADDRESS, TEXT_MASK_BITS, TEXT_OPERATION},
        TEXT_NO_ACCESS_ROWS);
    for (const AccessRow& row : rows) {
        table->addRow(makeText(row.address), makeText(row.maskBits),
                      makeLink(addressWith(listPath(), {{OPERATION, REMOVE}, {ROW, row.getText()}}),
                               text(TEXT_REMOVE)));
    }
    return table;
}

class AddPage : public SettingsPage {
public:
    explicit AddPage(const PageContext& context)
        : SettingsPage(context, ADD_FUNCTION, TEXT_ADD_ACCESS_PURPOSE),
          m_row(add(TEXT_MASKED_ADDRESS, TEXT_WRONG_MASKED_ADDRESS,
                    std::make_unique<MaskedAddressInput>("address"))) {
        carryInAddress(OPERATION, ADD);
        setReturnPath(listPath());
        setApplyLabel(TEXT_ADD);
        setCompletion(ROW_ADDED);
    }

protected:
    bool isCompared() const override { return false; }
    void readCurrent() override {}

    std::string getLockOut() override {
        std::vector<AccessRow> rows = readList(getRequester());
        Record record;
        m_row.write(record);
        rows.push_back({record[0], record[1]});
        return describeLostAccess(rows);
    }

    void apply() override {
        Record record;
        m_row.write(record);
        switch (
            writeRecord(getRequester(), ITEM_ACCESS_LIST_ADD, record, {ERROR_EXISTS, ERROR_FULL})) {
            case ERROR_EXISTS:
                mark(m_row, TEXT_ACCESS_EXISTS);
                break;
            case ERROR_FULL:
                refuse(TEXT_ACCESS_LIST_FULL);
                break;
            default:
                break;
        }
    }

private:
    MaskedAddressInput& m_row;
};

/// The page asks, and its button removes the row.
class RemovePage : public SettingsPage {
public:
    explicit RemovePage(const PageContext& context)
        : SettingsPage(context, REMOVE_FUNCTION, TEXT_REMOVE_ACCESS_PURPOSE),
          m_list(readList(context.requester)),
          m_row(add(TEXT_MASKED_ADDRESS, TEXT_NO_SUCH_ACCESS, std::make_unique<ChosenInput>(ROW))) {
        for (const AccessRow& row : m_list) {
            m_row.addOption(row.getText(), row.getText());
        }
        carryInAddress(OPERATION, REMOVE);
        setReturnPath(listPath());
        setApplyLabel(TEXT_REMOVE);
        setCompletion(ROW_REMOVED);
    }

protected:
    bool isCompared() const override { return false; }
    bool isConfirmed() const override { return false; }

    void readCurrent() override {
        m_row.setText(getField(ROW));
        if (m_row.isError()) {
            mark(m_row);
        }
    }

    std::string getLockOut() override {
        std::vector<AccessRow> rows;
        for (const AccessRow& row : m_list) {
            if (row.getText() != m_row.getText()) {
                rows.push_back(row);
            }
        }
        return m_row.isError() ? "" : describeLostAccess(rows);
    }

    void apply() override {
        for (const AccessRow& row : m_list) {
            if (row.getText() == m_row.getText()) {
                remove(row);
            }
        }
    }

private:
    void remove(const AccessRow& row) {
        Record record;
        record.push_back(row.address);
        record.push_back(row.maskBits);
        if (writeRecord(getRequester(), ITEM_ACCESS_LIST_REMOVE, record, {ERROR_NOT_FOUND}) != 0) {
            mark(m_row);
        }
    }

    std::vector<AccessRow> m_list;
    ChosenInput& m_row;
};

class AccessListMain : public ConsoleMain {
public:
    explicit AccessListMain(FormInfo& form) : ConsoleMain(form, LIST_FUNCTION) {}

protected:
    Function getFunction() const override {
        const std::string operation = getField(OPERATION);
        if (operation == ADD) {
            return ADD_FUNCTION;
        }
        return operation == REMOVE ? REMOVE_FUNCTION : LIST_FUNCTION;
    }

    Component makeBody(const PageContext& context) override {
        switch (getFunction()) {
            case ADD_FUNCTION:
                return makeNetworkPage<AddPage>(context);
            case REMOVE_FUNCTION:
                return makeNetworkPage<RemovePage>(context);
            default:
                return makeList(context.requester);
        }
    }

private:
    static Component makeList(CGIRequester& requester) {
        auto list =
            makeListPart(LIST_FUNCTION, TEXT_ACCESS_LIST_PURPOSE, makeTable(readList(requester)));
        list->put("tabs",
                  makeLink(addressWith(listPath(), {{OPERATION, ADD}}), text(TEXT_ADD_ACCESS)));
        if (Component notice = makeProbationNotice(requester)) {
            list->put("probation", std::move(notice));
        }
        return list;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::AccessListMain>();
}
