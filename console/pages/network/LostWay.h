#pragma once

#include <string>
#include <vector>

#include "framework/backend/RecordReader.h"

/// What a change of the network settings would end for the user who makes it. Each function returns
/// a sentence with the address or port concerned, or an empty text when the way in use stays. Where
/// that cannot be told, as behind a port forward, the way counts as ended.
namespace Console {

/// The board gets another address than the present one.
std::string describeLostAddress(const std::string& present, const std::string& wanted);

/// The services change. Both are the board's record.
std::string describeLostService(const Record& present, const Record& wanted);

/// A row of the access list. Its text has a slash between address and mask bits.
struct AccessRow {
    std::string address;
    std::string maskBits;

    std::string getText() const { return address + '/' + maskBits; }
};

/// The access list has these rows.
std::string describeLostAccess(const std::vector<AccessRow>& rows);

}  // namespace Console
