#pragma once

#include <cstdint>
#include <string>

#include "wire/Fields.h"

/// Validators of the items that are stored as written, and the fields that other parts of the board
/// use.
namespace ORVLib::Board {

/// The fields of ITEM_SERVICES: whether a service is on, and its port.
constexpr Field SERVICES[] = {FLAG, PORT, FLAG, PORT, FLAG, PORT, FLAG, PORT};
enum ServicesField { SERVICES_HTTP, HTTP_PORT_FIELD, SERVICES_HTTPS, HTTPS_PORT_FIELD };

/// The field of ITEM_ADDRESSES that is the board's address.
constexpr std::size_t ADDRESS_FIELD = 1;

/// A row of ITEM_ACCESS_LIST.
constexpr Field ACCESS_ROW[] = {ADDRESS, MASK_BITS};
constexpr std::size_t MAX_ACCESS_ROWS = 32;

/// The fields of ITEM_PRODUCT.
constexpr std::size_t PRODUCT_VERSION_FIELD = 2;
constexpr int MAX_VERSION_LENGTH = 20;
constexpr Field PRODUCT[] = {text(1, 64), text(1, 64), text(1, MAX_VERSION_LENGTH)};

/// The version of a firmware, as a text alone.
bool isVersion(const std::string& version);

/// One field, which is the whole record.
bool isValidRecord(const std::string& content, const Field& field);

bool isAnything(const std::string& content);
bool isLanguage(const std::string& content);
bool isOwnLanguage(const std::string& content);
bool isInterval(const std::string& content);
bool isPort(const std::string& content);
bool isProbationTime(const std::string& content);
bool isPasswordChange(const std::string& content);

bool isProduct(const std::string& content);
bool isSystemNames(const std::string& content);
bool isLed(const std::string& content);
bool isAddresses(const std::string& content);
bool isServices(const std::string& content);
bool isTraps(const std::string& content);
bool isAccessList(const std::string& content);
bool isAccessRow(const std::string& content);
bool isMail(const std::string& content);
bool isSchedule(const std::string& content);
bool isBoot(const std::string& content);

}  // namespace ORVLib::Board
