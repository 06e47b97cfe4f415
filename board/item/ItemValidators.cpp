#include "item/ItemValidators.h"

#include <algorithm>
#include <set>

#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

constexpr Field SYSTEM_NAMES[] = {text(1, 32), text(0, 32), text(0, 64), text(0, 64)};
constexpr Field LED = word("off|on|blink");
constexpr Field ADDRESSES[] = {text(1, 64),      ADDRESS,          MASK_BITS,
                               orEmpty(ADDRESS), orEmpty(ADDRESS), orEmpty(ADDRESS)};

constexpr std::size_t TRAP_RECEIVERS = 3;
constexpr Field TRAP[] = {FLAG, orEmpty(ADDRESS), text(0, 32)};

enum MailField { MAIL_ENABLED, MAIL_SERVER, MAIL_PORT, MAIL_SENDER, MAIL_RECIPIENT };
constexpr Field MAIL[] = {FLAG, text(0, 64), orEmpty(PORT), text(0, 64), text(0, 64), text(0, 64)};

enum ScheduleField { SCHEDULED, FIRST_DAY, LAST_DAY, WEEKDAYS, POWER_ON, POWER_OFF };
constexpr Field SCHEDULE[] = {FLAG, DAY, DAY, flags(7), orEmpty(TIME), orEmpty(TIME)};

constexpr std::size_t BOOT_DEVICES = 3;
constexpr Field BOOT_DEVICE = word("disk|dvd|network|none");
constexpr Field BOOT[] = {BOOT_DEVICE, BOOT_DEVICE, BOOT_DEVICE, number(0, 9), FLAG};
const char* const NO_DEVICE = "none";

const char* const ON = "1";

bool isNumber(const std::string& content, std::uint32_t lowest, std::uint32_t highest) {
    if (content.size() != 4) {
        return false;
    }
    const std::uint32_t value = readNumber(content, 0);
    return value >= lowest && value <= highest;
}

}  // namespace

bool isValidRecord(const std::string& content, const Field& field) {
    const Field fields[] = {field};
    return parseRecord(content, fields).has_value();
}

bool isAnything(const std::string& content) {
    return !content.empty();
}

bool isLanguage(const std::string& content) {
    return isNumber(content, 0, 255);
}

bool isOwnLanguage(const std::string& content) {
    return isNumber(content, 0, 1);
}

bool isInterval(const std::string& content) {
    return isNumber(content, 0, 86400);
}

bool isPort(const std::string& content) {
    return isNumber(content, 1, 65535);
}

bool isProbationTime(const std::string& content) {
    return isNumber(content, 0, MAX_PROBATION_S);
}

bool isPasswordChange(const std::string& content) {
    return content.size() == PasswordChange::SIZE;
}

bool isProduct(const std::string& content) {
    return parseRecord(content, PRODUCT).has_value();
}

bool isSystemNames(const std::string& content) {
    return parseRecord(content, SYSTEM_NAMES).has_value();
}

bool isLed(const std::string& content) {
    return isValidRecord(content, LED);
}

bool isAddresses(const std::string& content) {
    return parseRecord(content, ADDRESSES).has_value();
}

// Four services: whether each is on, and its port. Without HTTP and HTTPS nobody could log in and
// enable one again.
bool isServices(const std::string& content) {
    const auto record = parseRecord(content, SERVICES);
    if (!record) {
        return false;
    }
    const Record& fields = *record;
    const std::set<std::string> ports = {fields[1], fields[3], fields[5], fields[7]};
    return ports.size() == 4 && (fields[0] == ON || fields[2] == ON);
}

bool isTraps(const std::string& content) {
    const auto record = parseRows(content, TRAP);
    if (!record || record->size() != TRAP_RECEIVERS * std::size(TRAP)) {
        return false;
    }
    for (std::size_t i = 0; i < record->size(); i += std::size(TRAP)) {
        const bool isOn = (*record)[i] == ON;
        if (isOn && ((*record)[i + 1].empty() || (*record)[i + 2].empty())) {
            return false;
        }
    }
    return true;
}

bool isAccessList(const std::string& content) {
    const auto record = parseRows(content, ACCESS_ROW);
    if (!record || record->size() > MAX_ACCESS_ROWS * std::size(ACCESS_ROW)) {
        return false;
    }
    std::set<std::string> rows;
    for (std::size_t i = 0; i < record->size(); i += std::size(ACCESS_ROW)) {
        rows.insert((*record)[i] + '/' + (*record)[i + 1]);
    }
    return rows.size() * std::size(ACCESS_ROW) == record->size();
}

bool isAccessRow(const std::string& content) {
    return parseRecord(content, ACCESS_ROW).has_value();
}

bool isMail(const std::string& content) {
    const auto record = parseRecord(content, MAIL);
    if (!record || (*record)[MAIL_ENABLED] != ON) {
        return record.has_value();
    }
    const auto isMissing = [](const std::string& field) { return field.empty(); };
    return std::none_of(record->begin() + MAIL_SERVER, record->begin() + MAIL_RECIPIENT + 1,
                        isMissing);
}

bool isSchedule(const std::string& content) {
    const auto record = parseRecord(content, SCHEDULE);
    // Days compare as their texts do.
    if (!record || (*record)[FIRST_DAY] > (*record)[LAST_DAY]) {
        return false;
    }
    const Record& fields = *record;
    const bool isComplete = fields[WEEKDAYS].find('1') != std::string::npos &&
                            (!fields[POWER_ON].empty() || !fields[POWER_OFF].empty());
    return fields[SCHEDULED] != ON || isComplete;
}

bool isBoot(const std::string& content) {
    const auto record = parseRecord(content, BOOT);
    if (!record || record->front() == NO_DEVICE) {
        return false;
    }
    std::set<std::string> devices;
    for (std::size_t i = 0; i < BOOT_DEVICES; ++i) {
        const std::string& device = (*record)[i];
        if (device != NO_DEVICE && !devices.insert(device).second) {
            return false;
        }
    }
    return true;
}

bool isVersion(const std::string& version) {
    return isValidRecord(version + '\0', PRODUCT[PRODUCT_VERSION_FIELD]);
}

}  // namespace ORVLib::Board
