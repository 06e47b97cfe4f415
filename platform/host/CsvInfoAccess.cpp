#include "orv/CsvInfoAccess.h"

#include <fstream>
#include <iterator>

namespace ORVLib::ORVUi {

namespace {

using Record = std::vector<std::string>;

/// Reads a whole CSV text. A text is damaged when a quote is inside a bare field, when text follows
/// a closing quote, or when a quote is never closed.
class CsvReader {
public:
    explicit CsvReader(const std::string& text) : m_at(text.begin()), m_end(text.end()) {}

    /// Returns false when the text is damaged.
    bool readAll(std::vector<Record>& records) {
        while (m_at != m_end) {
            Record record;
            if (!readRecord(record)) {
                return false;
            }
            records.push_back(std::move(record));
        }
        return true;
    }

private:
    bool readRecord(Record& record) {
        while (true) {
            std::string field;
            if (!(atChar('"') ? readQuoted(field) : readBare(field))) {
                return false;
            }
            record.push_back(std::move(field));
            if (m_at == m_end || skipLineEnd()) {
                return true;
            }
            if (!skip(',')) {
                return false;
            }
        }
    }

    bool readBare(std::string& field) {
        while (m_at != m_end && *m_at != ',' && *m_at != '\n' && !atCarriageReturnLineFeed()) {
            if (*m_at == '"' || *m_at == '\0') {
                return false;
            }
            field += *m_at++;
        }
        return true;
    }

    bool readQuoted(std::string& field) {
        ++m_at;
        while (m_at != m_end) {
            if (*m_at != '"') {
                field += *m_at++;
                continue;
            }
            ++m_at;
            if (!atChar('"')) {
                return true;
            }
            field += *m_at++;
        }
        return false;
    }

    bool atChar(char character) const { return m_at != m_end && *m_at == character; }

    bool atCarriageReturnLineFeed() const {
        return atChar('\r') && m_at + 1 != m_end && m_at[1] == '\n';
    }

    bool skip(char character) {
        if (!atChar(character)) {
            return false;
        }
        ++m_at;
        return true;
    }

    bool skipLineEnd() {
        if (atCarriageReturnLineFeed()) {
            m_at += 2;
            return true;
        }
        return skip('\n');
    }

    std::string::const_iterator m_at;
    std::string::const_iterator m_end;
};

bool readFile(const std::string& path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return false;
    }
    try {
        text.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    } catch (const std::ios_base::failure&) {  // a folder can be opened, but not read
        return false;
    }
    return !file.bad();
}

std::string joined(const Record& record) {
    std::string text;
    for (const std::string& field : record) {
        if (&field != &record.front()) {
            text += ',';
        }
        text += field;
    }
    return text;
}

}  // namespace

CsvInfoAccess::CsvInfoAccess(const std::string& path) : m_fault(true) {
    std::string text;
    if (!readFile(path, text)) {
        return;
    }
    m_fault = !CsvReader(text).readAll(m_records);
    if (m_fault) {
        m_records.clear();
    }
}

bool CsvInfoAccess::searchRecord(int column, const std::string& key, std::string& record) const {
    for (const Record& candidate : m_records) {
        if (column >= 0 && static_cast<std::size_t>(column) < candidate.size() &&
            candidate[static_cast<std::size_t>(column)] == key) {
            record = joined(candidate);
            return true;
        }
    }
    return false;
}

}  // namespace ORVLib::ORVUi
