#pragma once

#include <string>
#include <vector>

#include "orv/SerializableObject.h"

namespace Console {

/// A list of texts, as the board keeps most of its items: each is ended by a NUL byte. A text
/// counts up to its first NUL.
class Record : public ORVLib::SerializableObject {
public:
    void add(const std::string& text);
    const std::vector<std::string>& getTexts() const { return m_texts; }

    unsigned int getSerialized(unsigned char* buffer, unsigned int size) const override;
    unsigned int getSerializedSize() const override;

    /// Refuses bytes that do not end with a NUL.
    bool setSerialized(const unsigned char* data, unsigned int size) override;

    /// True when the last bytes set were refused.
    bool isDamaged() const { return m_damaged; }

private:
    std::vector<std::string> m_texts;
    bool m_damaged = false;
};

/// Leaves the page for the error page: the board's answer is not what the page was written for.
[[noreturn]] void failDamaged();

/// Goes through the texts of a record. REQUIRES: the record outlives this.
class RecordReader {
public:
    explicit RecordReader(const Record& record) : m_record(record) {}

    bool isAtEnd() const { return m_next >= m_record.getTexts().size(); }

    /// The next text. Behind the last one failDamaged() ends the page.
    const std::string& next();

    /// Ends the page, as next() does, unless the last text has been read.
    void requireEnd() const;

private:
    const Record& m_record;
    std::size_t m_next = 0;
};

/// The texts of a record that is a list of rows with so many texts each. A list without rows may
/// come as one empty text. When the last row is not whole, failDamaged() ends the page.
std::vector<std::vector<std::string>> rowsOf(const Record& record, std::size_t columns);

}  // namespace Console
