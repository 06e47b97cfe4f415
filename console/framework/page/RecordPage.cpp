#include "framework/page/RecordPage.h"

namespace Console {

void RecordPage::readCurrent() {
    const Record record = readRecord(getRequester(), m_item);
    RecordReader reader(record);
    for (Input* const input : getRecordInputs()) {
        input->read(reader);
    }
    reader.requireEnd();
}

void RecordPage::apply() {
    Record record;
    for (const Input* const input : getRecordInputs()) {
        // The input itself keeps its value, for a form that is shown again.
        if (isNeeded(*input)) {
            input->write(record);
        } else {
            record.emplace_back();
        }
    }
    if (writeRecord(getRequester(), m_item, record, {ERROR_BAD_REQUEST}) != 0) {
        refuse(TEXT_REFUSED_BY_BOARD);
    }
}

}  // namespace Console
