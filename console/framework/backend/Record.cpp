#include "framework/backend/Record.h"

#include <cstring>

#include "orv/PException.h"

namespace Console {

void Record::add(const std::string& text) {
    m_texts.emplace_back(text.c_str());
}

unsigned int Record::getSerialized(unsigned char* buffer, unsigned int size) const {
    if (size < getSerializedSize()) {
        return 0;
    }
    for (const std::string& text : m_texts) {
        std::memcpy(buffer, text.c_str(), text.size() + 1);
        buffer += text.size() + 1;
    }
    return getSerializedSize();
}

unsigned int Record::getSerializedSize() const {
    std::size_t size = 0;
    for (const std::string& text : m_texts) {
        size += text.size() + 1;
    }
    return static_cast<unsigned int>(size);
}

bool Record::setSerialized(const unsigned char* data, unsigned int size) {
    m_texts.clear();
    m_damaged = size > 0 && data[size - 1] != 0;
    if (m_damaged) {
        return false;
    }
    const char* const bytes = reinterpret_cast<const char*>(data);
    for (unsigned int at = 0; at < size;
         at += static_cast<unsigned int>(m_texts.back().size()) + 1) {
        m_texts.emplace_back(bytes + at);
    }
    return true;
}

void failDamaged() {
    constexpr int ERROR_DAMAGED_ANSWER = 1026;
    throw ORVLib::PException(1, 2, 0, 0, ERROR_DAMAGED_ANSWER, 0, 0, 0, 0, 0, 0, 0, 0, 0);
}

const std::string& RecordReader::next() {
    if (isAtEnd()) {
        failDamaged();
    }
    return m_record.getTexts()[m_next++];
}

void RecordReader::requireEnd() const {
    if (!isAtEnd()) {
        failDamaged();
    }
}

std::vector<std::vector<std::string>> rowsOf(const Record& record, std::size_t columns) {
    std::vector<std::vector<std::string>> rows;
    if (record.getTexts() == std::vector<std::string>{""}) {
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
