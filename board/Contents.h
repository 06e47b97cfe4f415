#pragma once

#include <climits>
#include <cstdint>
#include <string>

#include "Records.h"

/// What the items may hold: the checks, and the fields that other parts of the board look at.
namespace ORVLib::Board {

constexpr Field POWER_STATE = word("on|off");
constexpr Field POWER_OPERATION = word("on|off|force-off|reset");

constexpr Field SEVERITY = word("info|warning|error");
constexpr Field EVENT_SOURCE =
    orEmpty(word("security|settings|power|hardware|firmware|maintenance"));
constexpr Field EVENT_COUNT = number(1, 200);
constexpr Field EVENT_FILTER[] = {SEVERITY, EVENT_SOURCE, EVENT_COUNT};
constexpr Field EVENT_QUERY[] = {SEVERITY,     EVENT_SOURCE, orEmpty(DAY),
                                 orEmpty(DAY), EVENT_COUNT,  orEmpty(number(1, INT_MAX))};

enum ClockField { CLOCK_DATE, CLOCK_TIME, CLOCK_ZONE, CLOCK_SOURCE_FIELD, CLOCK_SERVER };
constexpr Field CLOCK_SOURCE = word("manual|servers");
const char* const CLOCK_SERVERS = "servers";

/// The fields of ITEM_USER_ADD and ITEM_USER_EDIT; ITEM_USERS has them without the password.
enum UserField { USER_NAME, USER_PASSWORD, USER_ROLE, USER_PARTITION_FLAGS, USER_LANGUAGE };
constexpr int USER_PARTITIONS = 16;

/// The fields of ITEM_SERVICES that the HTTPS port is.
constexpr Field SERVICES[] = {FLAG, PORT, FLAG, PORT, FLAG, PORT, FLAG, PORT};
constexpr std::size_t HTTPS_PORT_FIELD = 3;

/// A row of ITEM_ACL.
constexpr Field ACCESS_ROW[] = {ADDRESS, MASK_BITS};
constexpr std::size_t MAX_ACCESS_ROWS = 32;

/// The fields of ITEM_PRODUCT.
constexpr std::size_t PRODUCT_VERSION_FIELD = 2;
constexpr int MAX_VERSION_LENGTH = 20;
constexpr Field PRODUCT[] = {text(1, 64), text(1, 64), text(1, MAX_VERSION_LENGTH)};

/// Offsets into the maintenance mode.
struct MaintenanceMode {
    static constexpr std::size_t FIRST_PARTITION = 17;
    static constexpr std::size_t SYSTEM = 33;
    static constexpr std::size_t SIZE = 34;
};

/// One field, which is the whole record.
bool isFitRecord(const std::string& content, const Field& field);

bool isAnything(const std::string& content);
bool isLanguage(const std::string& content);
bool isInterval(const std::string& content);
bool isPort(const std::string& content);
bool isPasswordChange(const std::string& content);
bool isMaintenanceMode(const std::string& content);
bool isPacket(const std::string& content);

bool isProduct(const std::string& content);
bool isSystemNames(const std::string& content);
bool isPowerState(const std::string& content);
bool isPowerOperation(const std::string& content);
bool isLed(const std::string& content);
bool isAddresses(const std::string& content);
bool isServices(const std::string& content);
bool isTraps(const std::string& content);
bool isAccessList(const std::string& content);
bool isAccessRow(const std::string& content);
bool isMail(const std::string& content);
bool isSchedule(const std::string& content);
bool isBoot(const std::string& content);

bool isEventQuery(const std::string& content);
bool isEventFilter(const std::string& content);
bool isClock(const std::string& content);
bool isNewUser(const std::string& content);
bool isChangedUser(const std::string& content);
bool isUserName(const std::string& content);

}  // namespace ORVLib::Board
