#pragma once

#include <string>
#include <vector>

namespace ORVLib::ORVUi {

/// A table in a CSV file, read once: fields separated by commas, a record a line, fields that
/// hold a comma, a quote or a line end between double quotes.
class CsvInfoAccess {
public:
    /// Reads the file. Never throws for a missing or damaged one: see isFault().
    explicit CsvInfoAccess(const std::string& path);

    /// True when the file could not be read or is not CSV; such a table holds no records.
    bool isFault() const { return m_fault; }

    /// Looks for the first record whose field number `column` (from 0) is `key`.
    /// Found: puts the record's fields, joined with commas, into `record` and returns true.
    /// Otherwise returns false and leaves `record` untouched.
    bool searchRecord(int column, const std::string& key, std::string& record) const;

private:
    using Record = std::vector<std::string>;

    bool m_fault;
    std::vector<Record> m_records;
};

}  // namespace ORVLib::ORVUi
