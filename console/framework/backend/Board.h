#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "framework/backend/Record.h"
#include "gui/CGIRequester.h"

/// What the console asks the board for.
namespace Console {

/// Information items that the console alone uses. Those from ITEM_STATUS on are records.
enum BoardItem : unsigned int {
    ITEM_USER_INFORMATION = 0x02010025,      // name, 36 bytes, and refresh interval, 32 bits
    ITEM_OWN_REFRESH_INTERVAL = 0x02010027,  // seconds, 32 bits
    ITEM_OWN_PASSWORD = 0x02010028,          // present and new password, 36 bytes each
    ITEM_OWN_DEVICE = 0x02010029,            // a record: ID of the browser, or an empty text
    ITEM_FIRMWARE_STAGE = 0x02010064,        // offset, 32 bits, and bytes of the image
    ITEM_BACKUP = 0x02010068,                // a text file
    ITEM_STATUS = 0x02010003,
    ITEM_PRODUCT = 0x02010007,
    ITEM_SYSTEM_NAMES = 0x02010008,
    ITEM_SYSTEM_POWER = 0x0201000a,
    ITEM_LED = 0x0201000b,
    ITEM_PARTITIONS = 0x02010030,
    ITEM_USERS = 0x0201003c,
    ITEM_USER_ADD = 0x0201003d,
    ITEM_USER_EDIT = 0x0201003e,
    ITEM_USER_REMOVE = 0x0201003f,
    ITEM_SESSIONS = 0x02010040,
    ITEM_CLOCK = 0x02010046,
    ITEM_ADDRESSES = 0x02010048,
    ITEM_SERVICES = 0x0201004a,
    ITEM_TRAPS = 0x0201004d,
    ITEM_ACCESS_LIST = 0x02010058,
    ITEM_ACCESS_LIST_ADD = 0x02010059,
    ITEM_ACCESS_LIST_REMOVE = 0x0201005a,
    ITEM_MAIL = 0x0201005c,
    ITEM_PROGRESS = 0x0201005f,
    ITEM_FIRMWARE_STAGED = 0x02010065,
    ITEM_FIRMWARE_START = 0x02010066,
    ITEM_FIRMWARE_DROP = 0x02010067,
    ITEM_EVENTS = 0x02010099,
    ITEM_OWN_EVENT_FILTER = 0x0201009a,
    ITEM_PARTITION_POWER = 0x02010300,     // and the following, one for each partition
    ITEM_PARTITION_SCHEDULE = 0x02010310,  // likewise
    ITEM_PARTITION_BOOT = 0x02010320       // likewise
};

/// Partitions that a board can have.
constexpr int MOST_PARTITIONS = 16;

/// Exception details of the board that pages tell apart.
enum BoardError : unsigned int {
    ERROR_LOGIN_REFUSED = 1281,
    ERROR_NOT_AUTHORISED = 1282,
    ERROR_NO_SUCH_ITEM = 1283,
    ERROR_BAD_REQUEST = 1284,
    ERROR_BUSY = 1285,
    ERROR_EXISTS = 1286,
    ERROR_FULL = 1287,
    ERROR_NOT_FOUND = 1288,
    ERROR_LAST_ADMINISTRATOR = 1289,
    ERROR_DAMAGED = 1290
};

/// Bytes that the board takes for an item in one exchange.
constexpr std::size_t LARGEST_CONTENT = 0xffff;

/// Leaves the page for the error page that the requester's last failure calls for.
[[noreturn]] void throwRequesterError(const ORVLib::Gui::CGIRequester& requester);

/// Read or write an item that is a 32-bit number. A failure ends in the error page.
std::uint32_t readNumber(ORVLib::Gui::CGIRequester& requester, unsigned int item);
void writeNumber(ORVLib::Gui::CGIRequester& requester, unsigned int item, std::uint32_t number);

/// The name of the session's user. A failure ends in the error page.
std::string readUserName(ORVLib::Gui::CGIRequester& requester);

/// Reads an item that is a record. A failure ends in the error page.
Record readRecord(ORVLib::Gui::CGIRequester& requester, unsigned int item);

/// The numbers of the partitions that exist, below MOST_PARTITIONS. A failure ends in the error
/// page.
std::vector<int> readPartitions(ORVLib::Gui::CGIRequester& requester);

/// As readRecord(). Returns 0, or the board's error when it is `expected`; any other failure ends
/// in the error page.
unsigned int readRecord(ORVLib::Gui::CGIRequester& requester, unsigned int item, Record& record,
                        std::initializer_list<unsigned int> expected);

/// Reads an item that is a record and depends on what is asked, another record. A failure ends in
/// the error page.
Record queryRecord(ORVLib::Gui::CGIRequester& requester, unsigned int item, const Record& question);

/// Writes an item that is a record. Returns 0, or the board's error when it is `expected`; any
/// other failure ends in the error page.
unsigned int writeRecord(ORVLib::Gui::CGIRequester& requester, unsigned int item,
                         const Record& record, std::initializer_list<unsigned int> expected = {});

/// Reads an item that is bytes of its own kind. A failure ends in the error page.
std::string readBytes(ORVLib::Gui::CGIRequester& requester, unsigned int item);

/// As writeRecord(), for bytes. REQUIRES: LARGEST_CONTENT of them at most.
unsigned int writeBytes(ORVLib::Gui::CGIRequester& requester, unsigned int item,
                        const std::string& bytes, std::initializer_list<unsigned int> expected);

}  // namespace Console
