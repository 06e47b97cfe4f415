#include "item/Items.h"

#include "item/Maintenance.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

void requirePartition(const NamedItem& item) {
    if (item.rules->scope == Scope::PARTITION && (item.id & PARTITION_MASK) >= PARTITION_COUNT) {
        throw boardError(ERROR_NO_SUCH_ITEM, "there is no such partition", item.id);
    }
}

void requireValid(const NamedItem& item, const std::string& content) {
    if (!item.rules->isValid(content)) {
        throw boardError(ERROR_BAD_REQUEST, "the payload does not fit the item", item.id);
    }
}

// The groups that a user belongs to, for this item.
unsigned int groupsOf(const Authority& authority, const NamedItem& item) {
    const std::uint32_t partitions = item.rules->scope == Scope::PARTITION
                                         ? 1U << (item.id & PARTITION_MASK)
                                         : ~std::uint32_t{0};
    const auto groupOf = [&authority](Role role, Group group) {
        return (authority.roles & role) != 0 ? group : NOBODY;
    };
    const Group ofPartition =
        (authority.partitions & partitions) != 0 ? PARTITION_ADMINISTRATORS : NOBODY;
    return EVERYBODY | ALL_USERS | ofPartition |
           groupOf(ROLE_SYSTEM_ADMINISTRATOR, SYSTEM_ADMINISTRATORS) |
           groupOf(ROLE_TECHNICAL_STAFF, TECHNICAL_STAFF) | groupOf(ROLE_OPERATOR, OPERATORS);
}

}  // namespace

std::string Items::read(const NamedItem& item, const Caller* caller) {
    requirePartition(item);
    requireGroup(item.rules->readers, item, caller);
    if (item.rules->kind == Kind::QUERY) {
        throw boardError(ERROR_BAD_REQUEST, "the item answers a question", item.id);
    }
    return callRead(item, caller, "");
}

void Items::checkWrite(const NamedItem& item, const std::string& content, const Caller& caller) {
    requirePartition(item);
    requireGroup(item.rules->writers, item, &caller);
    requireValid(item, content);
}

void Items::write(const NamedItem& item, const std::string& content, Caller& caller,
                  const std::string& passwordHash) {
    checkWrite(item, content, caller);
    item.rules->write({m_parts, item.id, *item.rules, &caller, content, passwordHash});
    caller.user = m_parts.state.findUser(caller.user.name).value_or(caller.user);
}

std::string Items::exchange(const NamedItem& item, const std::string& content, Caller& caller) {
    requirePartition(item);
    requireGroup(item.rules->readers, item, &caller);
    if (item.rules->kind == Kind::QUERY) {
        requireValid(item, content);
        return callRead(item, &caller, content);
    }
    write(item, content, caller);
    return read(item, &caller);
}

void Items::requireGroup(unsigned int groups, const NamedItem& item, const Caller* caller) {
    const bool isAllowed = caller != nullptr ? isAmong(groups, item, caller->user.authority)
                                             : (groups & EVERYBODY) != 0;
    if (!isAllowed) {
        throw boardError(ERROR_NOT_AUTHORISED, "this user may not use the item", item.id);
    }
}

bool Items::isAmong(unsigned int groups, const NamedItem& item, const Authority& authority) {
    const unsigned int own = groupsOf(authority, item);
    if ((own & groups) != 0) {
        return true;
    }
    return (groups & MAINTENANCE_STAFF) != 0 && (own & TECHNICAL_STAFF) != 0 &&
           Maintenance::allowsPower(m_parts.state);
}

std::string Items::callRead(const NamedItem& item, const Caller* caller,
                            const std::string& content) {
    return item.rules->read({m_parts, item.id, *item.rules, caller, content, ""});
}

}  // namespace ORVLib::Board
