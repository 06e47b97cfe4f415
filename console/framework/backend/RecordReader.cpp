#include "framework/backend/RecordReader.h"

#include "common/ErrorCode.h"
#include "common/MakeException.h"

namespace Console {

void failDamaged() {
    throw ORVLib::makeException({1, 2, 0, 0}, ORVLib::ErrorCode::OUT_OF_PROTOCOL, 0);
}

const std::string& RecordReader::next() {
    if (isAtEnd()) {
        failDamaged();
    }
    return m_record[m_next++];
}

void RecordReader::requireEnd() const {
    if (!isAtEnd()) {
        failDamaged();
    }
}

std::vector<Record> rowsOf(const Record& record, std::size_t columns) {
    std::vector<Record> rows;
    if (record == Record{""}) {
        return rows;
    }
    RecordReader reader(record);
    while (!reader.isAtEnd()) {
        rows.emplace_back();
        while (rows.back().size() < columns) {
            rows.back().push_back(reader.next());
        }
    }
    return rows;
}

}  // namespace Console
