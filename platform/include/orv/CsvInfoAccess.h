#pragma once

#include <string>
#include <vector>

namespace ORVLib::ORVUi {

/// A table that is read from a CSV file: one record per line, fields separated by commas. A field
/// that contains a comma, a double quote or a line end is in double quotes.
///
/// @code
/// const ORVUi::CsvInfoAccess table("/usr/local/www/skel/event_messages.csv");
/// std::string record;
/// if (table.searchRecord(0, "101", record)) std::cout << record;
/// @endcode
class CsvInfoAccess {
public:
    /// Reads the file. Does not throw when it is missing or damaged: check isFault().
    explicit CsvInfoAccess(const std::string& path);

    /// True when the file could not be read or is not CSV. The table is then empty.
    bool isFault() const { return m_fault; }

    /// Finds the first record whose field number `column` (from 0) equals `key`. Stores its fields,
    /// joined with commas, in `record` and returns true. Returns false and leaves `record`
    /// unchanged when there is none.
    bool searchRecord(int column, const std::string& key, std::string& record) const;

private:
    using Record = std::vector<std::string>;

    bool m_fault;
    std::vector<Record> m_records;
};

}  // namespace ORVLib::ORVUi
