#include "item/Network.h"

#include <algorithm>

#include "common/ParseNumber.h"
#include "item/ItemValidators.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::Network {

namespace {

const char* const ACCESS_LIST = "access list";

// Where the call's row begins in the list, or the list's end.
Record::iterator findRow(Record& list, const Record& row) {
    for (auto at = list.begin(); at != list.end(); at += std::size(ACCESS_ROW)) {
        if (std::equal(row.begin(), row.end(), at)) {
            return at;
        }
    }
    return list.end();
}

Record readAccessList(const Call& call) {
    return *parseRows(readValid(call.state, ITEM_ACCESS_LIST, isAccessList), ACCESS_ROW);
}

void writeAccessList(const Call& call, const Record& list) {
    call.state.writeItem(ITEM_ACCESS_LIST, formatRecord(list),
                         call.makeEvent(EventCode::SETTINGS_CHANGED, ACCESS_LIST));
}

}  // namespace

std::string readHttpsPort(const Call& call) {
    const std::string services = readValid(call.state, ITEM_SERVICES, isServices);
    const std::string port = parseTexts(services)->at(HTTPS_PORT_FIELD);
    return formatNumber(static_cast<std::uint32_t>(*parseNumber(port, 1, 65535)));
}

void writeHttpsPort(const Call& call) {
    const std::string before = readValid(call.state, ITEM_SERVICES, isServices);
    Record services = *parseTexts(before);
    services[HTTPS_PORT_FIELD] = std::to_string(readNumber(call.content, 0));
    const std::string content = formatRecord(services);
    if (!isServices(content)) {
        throw boardError(ERROR_BAD_REQUEST, "another service has this port", call.id);
    }
    if (content != before) {
        call.state.writeItem(ITEM_SERVICES, content,
                             call.makeEvent(EventCode::SETTINGS_CHANGED, "HTTPS port"));
    }
}

void addAccess(const Call& call) {
    Record list = readAccessList(call);
    const Record row = *parseTexts(call.content);
    if (findRow(list, row) != list.end()) {
        throw boardError(ERROR_EXISTS, "the access list has this row", call.id);
    }
    if (list.size() >= MAX_ACCESS_ROWS * std::size(ACCESS_ROW)) {
        throw boardError(ERROR_FULL, "the access list is full", call.id);
    }
    list.insert(list.end(), row.begin(), row.end());
    writeAccessList(call, list);
}

void removeAccess(const Call& call) {
    Record list = readAccessList(call);
    const auto row = findRow(list, *parseTexts(call.content));
    if (row == list.end()) {
        throw boardError(ERROR_NOT_FOUND, "the access list has no such row", call.id);
    }
    list.erase(row, row + std::size(ACCESS_ROW));
    writeAccessList(call, list);
}

}  // namespace ORVLib::Board::Network
