#include "framework/backend/Board.h"

#include <algorithm>

#include "framework/backend/Digits.h"
#include "orv/PException.h"

using ORVLib::Gui::CGIRequester;

namespace Console {

namespace {

const Record& whole(const Record& record) {
    if (record.isDamaged()) {
        failDamaged();
    }
    return record;
}

/// The requester's last failure, which must be one of those expected.
unsigned int requireExpected(const CGIRequester& requester,
                             std::initializer_list<unsigned int> expected) {
    const unsigned int error = requester.getErrorDetail();
    if (std::find(expected.begin(), expected.end(), error) == expected.end()) {
        throwRequesterError(requester);
    }
    return error;
}

/// Bytes of any kind, as they travel.
class Bytes : public ORVLib::SerializableObject {
public:
    const std::string& get() const { return m_bytes; }

    unsigned int getSerialized(unsigned char* buffer, unsigned int size) const override {
        return size < m_bytes.size() ? 0
                                     : static_cast<unsigned int>(m_bytes.copy(
                                           reinterpret_cast<char*>(buffer), m_bytes.size()));
    }
    unsigned int getSerializedSize() const override {
        return static_cast<unsigned int>(m_bytes.size());
    }
    bool setSerialized(const unsigned char* data, unsigned int size) override {
        m_bytes.assign(reinterpret_cast<const char*>(data), size);
        return true;
    }

private:
    std::string m_bytes;
};

}  // namespace

void throwRequesterError(const CGIRequester& requester) {
    throw ORVLib::PException(1, 2, 0, requester.getActionCode(),
                             static_cast<int>(requester.getErrorDetail()), 0, 0, 0, 0, 0, 0, 0, 0,
                             0);
}

std::uint32_t readNumber(CGIRequester& requester, unsigned int item) {
    unsigned char bytes[4];
    if (requester.getInfo(item, bytes, sizeof bytes) == 0) {
        throwRequesterError(requester);
    }
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
}

void writeNumber(CGIRequester& requester, unsigned int item, std::uint32_t number) {
    const unsigned char bytes[4] = {
        static_cast<unsigned char>(number >> 24), static_cast<unsigned char>(number >> 16),
        static_cast<unsigned char>(number >> 8), static_cast<unsigned char>(number)};
    if (requester.setInfo(item | ACCESS_WRITE, sizeof bytes, bytes) == 0) {
        throwRequesterError(requester);
    }
}

std::string readUserName(CGIRequester& requester) {
    char bytes[UserInformation::SIZE];
    if (requester.getInfo(PROCEDURE_GET_USER_INFO, bytes, sizeof bytes) == 0) {
        throwRequesterError(requester);
    }
    return {bytes, std::find(bytes, bytes + UserInformation::INTERVAL_OFFSET, '\0')};
}

Record readRecord(CGIRequester& requester, unsigned int item) {
    Record record;
    if (requester.getInfo(item, record) == 0) {
        throwRequesterError(requester);
    }
    return whole(record);
}

std::vector<int> readPartitions(CGIRequester& requester) {
    constexpr std::size_t MOST_DIGITS = 2;
    constexpr std::size_t FIELDS = 2;  // its number, and whether it is on
    std::vector<int> partitions;
    for (const auto& row : rowsOf(readRecord(requester, ITEM_PARTITIONS), FIELDS)) {
        const int partition = readDigits(row[0], MOST_DIGITS);
        if (partition < 0 || partition >= MAX_PARTITIONS) {
            failDamaged();
        }
        partitions.push_back(partition);
    }
    return partitions;
}

unsigned int readRecord(CGIRequester& requester, unsigned int item, Record& record,
                        std::initializer_list<unsigned int> expected) {
    if (requester.getInfo(item, record) == 0) {
        return requireExpected(requester, expected);
    }
    whole(record);
    return 0;
}

Record queryRecord(CGIRequester& requester, unsigned int item, const Record& question) {
    Record answer;
    if (requester.getInfo(item | ACCESS_EXCHANGE, question, answer) == 0) {
        throwRequesterError(requester);
    }
    return whole(answer);
}

unsigned int writeRecord(CGIRequester& requester, unsigned int item, const Record& record,
                         std::initializer_list<unsigned int> expected) {
    if (requester.setInfo(item | ACCESS_WRITE, record) != 0) {
        return 0;
    }
    return requireExpected(requester, expected);
}

std::string readBytes(CGIRequester& requester, unsigned int item) {
    Bytes bytes;
    if (requester.getInfo(item, bytes) == 0) {
        throwRequesterError(requester);
    }
    return bytes.get();
}

unsigned int writeBytes(CGIRequester& requester, unsigned int item, const std::string& bytes,
                        std::initializer_list<unsigned int> expected) {
    return requester.setInfo(item | ACCESS_WRITE, static_cast<unsigned int>(bytes.size()),
                             bytes.data()) != 0
               ? 0
               : requireExpected(requester, expected);
}

}  // namespace Console
