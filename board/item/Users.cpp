#include "item/Users.h"

#include <algorithm>
#include <iterator>

#include "item/ItemValidators.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::Users {

namespace {

constexpr std::size_t MAX_USERS = 64;

enum UserField { USER_NAME, USER_PASSWORD, USER_ROLE, USER_PARTITION_FLAGS, USER_LANGUAGE };
constexpr Field USER_NAME_FIELD = text(1, 32);
constexpr Field PASSWORD = text(8, 32);
constexpr Field ROLE = word("administrator|staff|guest|operator|partition");
constexpr Field NEW_USER[] = {USER_NAME_FIELD, PASSWORD, ROLE, flags(MAX_PARTITIONS), FLAG};
constexpr Field CHANGED_USER[] = {USER_NAME_FIELD, orEmpty(PASSWORD), ROLE, flags(MAX_PARTITIONS),
                                  FLAG};

struct Role {
    const char* name;
    std::uint32_t role;
};

constexpr Role ROLES[] = {
    {"administrator", ROLE_SYSTEM_ADMINISTRATOR},
    {"staff", ROLE_TECHNICAL_STAFF},
    {"guest", ROLE_GUEST},
    {"operator", ROLE_OPERATOR},
    {"partition", 0},
};

bool isLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isName(const std::string& name) {
    return isLetter(name[0]) && std::all_of(name.begin(), name.end(), [](char character) {
               return isLetter(character) || (character >= '0' && character <= '9') ||
                      std::string_view(".-_").find(character) != std::string_view::npos;
           });
}

std::uint32_t parsePartitions(const std::string& text) {
    std::uint32_t partitions = 0;
    for (unsigned int n = 0; n < MAX_PARTITIONS; ++n) {
        partitions |= text[n] == '1' ? 1U << n : 0U;
    }
    return partitions;
}

// The role "partition" needs partitions, of those the board has; no other role has any.
bool isUser(const std::optional<Record>& record) {
    if (!record || !isName((*record)[USER_NAME])) {
        return false;
    }
    const std::uint32_t partitions = parsePartitions((*record)[USER_PARTITION_FLAGS]);
    return (*record)[USER_PASSWORD].find(' ') == std::string::npos &&
           partitions >> PARTITION_COUNT == 0 &&
           (partitions != 0) == ((*record)[USER_ROLE] == "partition");
}

std::string nameRole(const Authority& authority) {
    const Role* const found =
        std::find_if(std::begin(ROLES), std::end(ROLES) - 1,
                     [&](const Role& entry) { return (authority.roles & entry.role) != 0; });
    return found->name;
}

std::uint32_t parseRole(const std::string& name) {
    const Role* const found = std::find_if(std::begin(ROLES), std::end(ROLES) - 1,
                                           [&](const Role& entry) { return entry.name == name; });
    return found->role;
}

std::string formatPartitions(std::uint32_t partitions) {
    std::string text;
    for (unsigned int n = 0; n < MAX_PARTITIONS; ++n) {
        text += (partitions >> n & 1U) != 0 ? '1' : '0';
    }
    return text;
}

bool isAdministrator(const User& user) {
    return (user.authority.roles & ROLE_SYSTEM_ADMINISTRATOR) != 0;
}

User requireUser(const Call& call, const std::string& name) {
    const auto user = call.state.findUser(name);
    if (!user) {
        throw boardError(ERROR_NOT_FOUND, "there is no such user", call.id);
    }
    return *user;
}

// An administrator must be left.
void requireAnotherAdministrator(const Call& call, const std::string& name) {
    const std::vector<User> users = call.state.readUsers();
    if (std::none_of(users.begin(), users.end(), [&name](const User& user) {
            return user.name != name && isAdministrator(user);
        })) {
        throw boardError(ERROR_LAST_ADMINISTRATOR, "this is the last administrator", call.id);
    }
}

bool isSame(const Authority& left, const Authority& right) {
    return left.roles == right.roles && left.partitions == right.partitions;
}

void take(User& user, const Record& fields) {
    user.authority = {parseRole(fields[USER_ROLE]), parsePartitions(fields[USER_PARTITION_FLAGS])};
    user.language = fields[USER_LANGUAGE] == "1" ? 1 : 0;
}

}  // namespace

bool isNewUser(const std::string& content) {
    return isUser(parseRecord(content, NEW_USER));
}

bool isChangedUser(const std::string& content) {
    return isUser(parseRecord(content, CHANGED_USER));
}

bool isUserName(const std::string& content) {
    return isValidRecord(content, USER_NAME_FIELD);
}

std::string list(const Call& call) {
    Record rows;
    for (const User& user : call.state.readUsers()) {
        rows.insert(rows.end(),
                    {user.name, nameRole(user.authority),
                     formatPartitions(user.authority.partitions), std::to_string(user.language)});
    }
    return formatRecord(rows);
}

void add(const Call& call) {
    const Record fields = *parseTexts(call.content);
    User user;
    user.name = fields[USER_NAME];
    user.passwordHash = call.passwordHash;
    take(user, fields);
    if (call.state.findUser(user.name)) {
        throw boardError(ERROR_EXISTS, "there is such a user", call.id);
    }
    if (call.state.readUsers().size() >= MAX_USERS) {
        throw boardError(ERROR_FULL, "there are too many users", call.id);
    }
    call.state.storeUser(user, call.makeEvent(EventCode::USER_ADDED, user.name));
}

void edit(const Call& call) {
    const Record fields = *parseTexts(call.content);
    User user = requireUser(call, fields[USER_NAME]);
    const Authority before = user.authority;
    take(user, fields);
    if (!isAdministrator(user)) {
        requireAnotherAdministrator(call, user.name);
    }
    const Event event = call.makeEvent(EventCode::USER_CHANGED, user.name);
    if (call.passwordHash.empty() && isSame(user.authority, before)) {
        call.state.storeUser(user, event);
        return;
    }
    if (!call.passwordHash.empty()) {
        user.passwordHash = call.passwordHash;
    }
    const bool isOwn = user.name == call.getUser().name;
    call.sessions.resetUser(user, isOwn ? call.caller->sessionId : "", event);
}

void remove(const Call& call) {
    const User user = requireUser(call, parseTexts(call.content)->front());
    if (user.name == call.getUser().name) {  // keeps the last administrator, too
        throw boardError(ERROR_LAST_ADMINISTRATOR, "nobody can remove himself", call.id);
    }
    call.sessions.removeUser(user.name, call.makeEvent(EventCode::USER_REMOVED, user.name));
}

std::string listSessions(const Call& call) {
    std::vector<StoredSession> sessions = call.sessions.list();
    std::sort(sessions.begin(), sessions.end(),
              [](const auto& left, const auto& right) { return left.loginTime > right.loginTime; });
    std::string rows;
    for (const StoredSession& session : sessions) {
        const auto user = call.state.findUser(session.user);
        const std::string row =
            formatRecord({session.user, user ? nameRole(user->authority) : "", session.address,
                          std::to_string(call.state.toBoardTime(session.loginTime)),
                          std::to_string(call.state.toBoardTime(session.lastUse))});
        if (rows.size() + row.size() > MAX_PAYLOAD_SIZE) {
            break;
        }
        rows += row;
    }
    return rows;
}

std::string getPassword(const std::string& content) {
    return parseTexts(content)->at(USER_PASSWORD);
}

}  // namespace ORVLib::Board::Users
