#pragma once

#include "framework/backend/Board.h"
#include "framework/page/SettingsPage.h"

namespace Console {

/// A settings page for one item of the board that is a record: its inputs are the record's texts,
/// in their order. An input that is not needed is written as one empty text.
class RecordPage : public SettingsPage {
protected:
    RecordPage(const PageContext& context, Function function, Text purpose, unsigned int item)
        : SettingsPage(context, function, purpose), m_item(item) {}

    /// The inputs that are the record's texts: all of them, unless the page has others, too.
    virtual std::vector<Input*> getRecordInputs() const { return getInputs(); }

    void readCurrent() override;

    /// When the board refuses the record, the form says so.
    void apply() override;

private:
    unsigned int m_item;
};

}  // namespace Console
