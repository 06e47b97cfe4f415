#include "framework/backend/Board.h"

#include <algorithm>
#include <utility>

#include "common/MakeException.h"
#include "framework/backend/Digits.h"
#include "protocol/Numbers.h"
#include "protocol/Payload.h"

using ORVLib::Gui::CGIRequester;

namespace Console {

namespace {

/// The requester's last failure, which must be one of those expected.
unsigned int requireExpected(const CGIRequester& requester,
                             std::initializer_list<unsigned int> expected) {
    const unsigned int error = requester.getErrorDetail();
    if (std::find(expected.begin(), expected.end(), error) == expected.end()) {
        throwRequesterError(requester);
    }
    return error;
}

Record recordOf(const Payload& payload) {
    auto texts = parseTexts(payload.getBytes());
    if (!texts) {
        failDamaged();
    }
    return std::move(*texts);
}

}  // namespace

void throwRequesterError(const CGIRequester& requester) {
    throw ORVLib::makeException({1, 2, 0, requester.getActionCode()},
                                static_cast<int>(requester.getErrorDetail()), 0);
}

std::uint32_t readNumber(CGIRequester& requester, unsigned int item) {
    unsigned char bytes[4];
    if (requester.getInfo(item, bytes, sizeof bytes) == 0) {
        throwRequesterError(requester);
    }
    return ORVLib::Bytes::read32(bytes);
}

void writeNumber(CGIRequester& requester, unsigned int item, std::uint32_t number) {
    writeBytes(requester, item, formatNumber(number), {});
}

std::string readUserName(CGIRequester& requester) {
    char bytes[UserInformation::SIZE];
    if (requester.getInfo(PROCEDURE_GET_USER_INFO, bytes, sizeof bytes) == 0) {
        throwRequesterError(requester);
    }
    return {bytes, std::find(bytes, bytes + UserInformation::INTERVAL_OFFSET, '\0')};
}

Record readRecord(CGIRequester& requester, unsigned int item) {
    Payload payload;
    if (requester.getInfo(item, payload) == 0) {
        throwRequesterError(requester);
    }
    return recordOf(payload);
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
    Payload payload;
    if (requester.getInfo(item, payload) == 0) {
        return requireExpected(requester, expected);
    }
    record = recordOf(payload);
    return 0;
}

Record queryRecord(CGIRequester& requester, unsigned int item, const Record& question) {
    Payload answer;
    if (requester.getInfo(item | ACCESS_EXCHANGE, Payload(formatRecord(question)), answer) == 0) {
        throwRequesterError(requester);
    }
    return recordOf(answer);
}

unsigned int writeRecord(CGIRequester& requester, unsigned int item, const Record& record,
                         std::initializer_list<unsigned int> expected) {
    return writeBytes(requester, item, formatRecord(record), expected);
}

std::string readBytes(CGIRequester& requester, unsigned int item) {
    Payload bytes;
    if (requester.getInfo(item, bytes) == 0) {
        throwRequesterError(requester);
    }
    return bytes.getBytes();
}

unsigned int writeBytes(CGIRequester& requester, unsigned int item, const std::string& bytes,
                        std::initializer_list<unsigned int> expected) {
    return requester.setInfo(item | ACCESS_WRITE, static_cast<unsigned int>(bytes.size()),
                             bytes.data()) != 0
               ? 0
               : requireExpected(requester, expected);
}

}  // namespace Console
