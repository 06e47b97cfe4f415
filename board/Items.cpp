#include "Items.h"

#include <algorithm>
#include <cstdio>

#include "Protocol.h"
#include "orv/GeneralPurposePacket.h"

namespace ORVLib::Board {

namespace {

enum class Who { EVERYBODY, USERS, ADMINISTRATORS, NOBODY };

bool isAnything(const std::string& content) {
    return !content.empty();
}

bool isNumber(const std::string& content, std::uint32_t lowest, std::uint32_t highest) {
    if (content.size() != 4) {
        return false;
    }
    const std::uint32_t number = readNumber(content, 0);
    return number >= lowest && number <= highest;
}

bool isLanguage(const std::string& content) {
    return isNumber(content, 0, 255);
}
bool isInterval(const std::string& content) {
    return isNumber(content, 0, 86400);
}
bool isPort(const std::string& content) {
    return isNumber(content, 1, 65535);
}
bool isMaintenanceMode(const std::string& content) {
    return content.size() == 34;
}

bool isPasswordChange(const std::string& content) {
    return content.size() == PasswordChange::SIZE;
}

bool isPacket(const std::string& content) {
    return ORVUi::GeneralPurposePacket().setSerialized(
        reinterpret_cast<const unsigned char*>(content.data()),
        static_cast<unsigned int>(content.size()));
}

struct Rule {
    std::uint32_t id;
    Who readers;
    Who writers;
    bool (*isFit)(const std::string& content);
};

// clang-format off
constexpr Rule RULES[] = {
    {ITEM_DEFAULT_LANGUAGE,       Who::EVERYBODY,      Who::ADMINISTRATORS, isLanguage},
    {PROCEDURE_LOGIN,             Who::NOBODY,         Who::NOBODY,         isAnything},
    {PROCEDURE_LOGOUT,            Who::NOBODY,         Who::NOBODY,         isAnything},
    {PROCEDURE_CHECK_SESSION,     Who::NOBODY,         Who::NOBODY,         isAnything},
    {PROCEDURE_GET_USER_INFO,     Who::NOBODY,         Who::NOBODY,         isAnything},
    {ITEM_OWN_LANGUAGE,           Who::USERS,          Who::USERS,          isLanguage},
    {ITEM_OWN_REFRESH_INTERVAL,   Who::USERS,          Who::USERS,          isInterval},
    {ITEM_OWN_PASSWORD,           Who::NOBODY,         Who::USERS,          isPasswordChange},
    {ITEM_EVENT_LOG,              Who::ADMINISTRATORS, Who::NOBODY,         isAnything},
    {ITEM_HTTPS_PORT,             Who::EVERYBODY,      Who::ADMINISTRATORS, isPort},
    {ITEM_MAINTENANCE_MODE,       Who::USERS,          Who::ADMINISTRATORS, isMaintenanceMode},
    {ITEM_MAINTENANCE_PERMISSION, Who::USERS,          Who::ADMINISTRATORS, isPacket},
};
// clang-format on

constexpr Rule OTHERS = {0, Who::USERS, Who::ADMINISTRATORS, isAnything};

const Rule& findRule(std::uint32_t id) {
    const auto* const found = std::find_if(std::begin(RULES), std::end(RULES),
                                           [id](const Rule& rule) { return rule.id == id; });
    return found != std::end(RULES) ? *found : OTHERS;
}

bool holds(const User* user, std::uint32_t role) {
    return user != nullptr && (user->authority.roles & role) != 0;
}

bool isAmong(Who who, const User* user) {
    switch (who) {
        case Who::EVERYBODY:
            return true;
        case Who::USERS:
            return user != nullptr;
        case Who::ADMINISTRATORS:
            return holds(user, ROLE_SYSTEM_ADMINISTRATOR);
        case Who::NOBODY:
            return false;
    }
    return false;
}

void requireAmong(Who who, const User* user, std::uint32_t id) {
    if (!isAmong(who, user)) {
        throw boardError(ERROR_NOT_AUTHORISED, "this user may not use the item", id);
    }
}

Event writtenBy(const User& user, std::uint32_t id, std::size_t size) {
    char text[sizeof "set item 0x00000000, 00000 bytes" + 16];
    std::snprintf(text, sizeof text, "set item 0x%08x, %zu bytes", id, size);
    return {user.name, text};
}

}  // namespace

bool Items::isPublic(std::uint32_t id) {
    return findRule(id).readers == Who::EVERYBODY;
}

void Items::checkRead(std::uint32_t id, const User* user) {
    requireAmong(findRule(id).readers, user, id);
}

std::string Items::read(std::uint32_t id, const User* user) {
    checkRead(id, user);
    if (id == ITEM_OWN_LANGUAGE) {
        return formatNumber(user->language);
    }
    if (id == ITEM_OWN_REFRESH_INTERVAL) {
        return formatNumber(user->refreshInterval);
    }
    if (id == ITEM_EVENT_LOG) {
        return m_state.readEvents();
    }
    const auto content = m_state.readItem(id);
    if (!content) {
        throw boardError(ERROR_NO_SUCH_ITEM, "the item was never set", id);
    }
    if (!findRule(id).isFit(*content)) {
        throw DatabaseError("an item is damaged", SQLITE_CORRUPT);
    }
    return *content;
}

void Items::checkWrite(std::uint32_t id, const std::string& content, const User& user) {
    const Rule& rule = findRule(id);
    requireAmong(rule.writers, &user, id);
    if (!rule.isFit(content)) {
        throw boardError(ERROR_BAD_REQUEST, "the payload does not fit the item", id);
    }
}

void Items::write(std::uint32_t id, const std::string& content, const User& user) {
    checkWrite(id, content, user);
    const Event event = writtenBy(user, id, content.size());
    if (id == ITEM_OWN_LANGUAGE) {
        m_state.setLanguage(user.name, static_cast<unsigned char>(readNumber(content, 0)), event);
    } else if (id == ITEM_OWN_REFRESH_INTERVAL) {
        m_state.setRefreshInterval(user.name, readNumber(content, 0), event);
    } else {
        m_state.writeItem(id, content, event);
    }
}

}  // namespace ORVLib::Board
