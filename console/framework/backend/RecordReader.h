#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "protocol/Record.h"

namespace Console {

using ORVLib::Protocol::Record;

/// Leaves the page for the error page: the board's answer has not the form that the page expects.
[[noreturn]] void failDamaged();

/// Reads the texts of a record one by one. REQUIRES: the record outlives this.
class RecordReader {
public:
    explicit RecordReader(const Record& record) : m_record(record) {}

    bool isAtEnd() const { return m_next >= m_record.size(); }

    /// The next text. After the last one failDamaged() ends the page.
    const std::string& next();

    /// Ends the page, as next() does, unless the last text has been read.
    void requireEnd() const;

private:
    const Record& m_record;
    std::size_t m_next = 0;
};

/// The rows of a record with `columns` texts in each. A list without rows may come as one empty
/// text. When the last row is incomplete, failDamaged() ends the page.
std::vector<Record> rowsOf(const Record& record, std::size_t columns);

}  // namespace Console
