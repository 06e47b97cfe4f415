#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "framework/backend/RecordReader.h"
#include "gui/CGIRequester.h"
#include "protocol/Errors.h"
#include "protocol/Items.h"
#include "protocol/Layouts.h"

/// What the console asks the board for.
namespace Console {

using namespace ORVLib::Protocol;

/// Leaves the page for the error page that the requester's last failure calls for.
[[noreturn]] void throwRequesterError(const ORVLib::Gui::CGIRequester& requester);

/// Read or write an item that is a 32-bit number. A failure ends in the error page.
std::uint32_t readNumber(ORVLib::Gui::CGIRequester& requester, unsigned int item);
void writeNumber(ORVLib::Gui::CGIRequester& requester, unsigned int item, std::uint32_t number);

/// The name of the session's user. A failure ends in the error page.
std::string readUserName(ORVLib::Gui::CGIRequester& requester);

/// Reads an item that is a record. A failure ends in the error page.
Record readRecord(ORVLib::Gui::CGIRequester& requester, unsigned int item);

/// The numbers of the partitions that exist, below MAX_PARTITIONS. A failure ends in the error
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

/// As writeRecord(), for bytes. REQUIRES: MAX_PAYLOAD_SIZE of them at most.
unsigned int writeBytes(ORVLib::Gui::CGIRequester& requester, unsigned int item,
                        const std::string& bytes, std::initializer_list<unsigned int> expected);

}  // namespace Console
