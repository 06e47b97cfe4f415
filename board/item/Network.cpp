#include "item/Network.h"

#include <algorithm>

#include "common/ParseNumber.h"
#include "item/ItemValidators.h"
#include "item/Probation.h"
#include "item/Stored.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::Network {

namespace {

const char* const ACCESS_LIST = "access list";

// How a user reached the board: the fields of ITEM_PROBATION_CONFIRM.
constexpr Field REVISION = text(Probation::REVISION_DIGITS, Probation::REVISION_DIGITS);
constexpr Field REACHED_ADDRESS = text(0, 64);
enum ConfirmationField { CONFIRMED_REVISION, SERVER_ADDRESS, SERVER_PORT, ENCRYPTED, CLIENT };
constexpr Field CONFIRMATION[] = {REVISION, REACHED_ADDRESS, PORT, FLAG, REACHED_ADDRESS};

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
    call.probation.write({{ITEM_ACCESS_LIST, formatRecord(list)}},
                         call.makeEvent(EventCode::SETTINGS_CHANGED, ACCESS_LIST));
}

}  // namespace

void write(const Call& call) {
    if (call.state.readItem(call.id) != call.content) {
        call.probation.write({{call.id, call.content}},
                             call.makeEvent(EventCode::SETTINGS_CHANGED, call.rules.name));
    }
}

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
        call.probation.write({{ITEM_SERVICES, content}},
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

std::string readProbation(const Call& call) {
    return call.probation.read();
}

bool isConfirmation(const std::string& content) {
    return parseRecord(content, CONFIRMATION).has_value();
}

void confirm(const Call& call) {
    const Record fields = *parseTexts(call.content);
    call.probation.confirm(
        fields[CONFIRMED_REVISION],
        {fields[SERVER_ADDRESS], fields[SERVER_PORT], fields[ENCRYPTED] == "1", fields[CLIENT]},
        call.getUser().name);
}

bool isRevision(const std::string& content) {
    return isValidRecord(content, REVISION);
}

void undo(const Call& call) {
    call.probation.undo(parseTexts(call.content)->front(), call.getUser().name);
}

std::string readProbationTime(const Call& call) {
    return formatNumber(Probation::readTime(call.state));
}

// The time that a board has before it is set is no change, either.
void writeProbationTime(const Call& call) {
    if (readNumber(call.content, 0) != Probation::readTime(call.state)) {
        Stored::write(call);
    }
}

}  // namespace ORVLib::Board::Network
