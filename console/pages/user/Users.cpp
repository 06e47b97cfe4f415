#include "pages/user/Users.h"

#include <algorithm>

#include "framework/backend/Board.h"
#include "framework/component/Vocabulary.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr std::size_t USER_FIELDS = 4;

constexpr char CHOSEN = '1';
constexpr char NOT_CHOSEN = '0';

bool isChosen(const std::string& partitions, std::size_t partition) {
    return partition < partitions.size() && partitions[partition] == CHOSEN;
}

}  // namespace

std::vector<User> readUsers(CGIRequester& requester) {
    std::vector<User> users;
    const Record record = readRecord(requester, ITEM_USERS);
    for (const auto& row : rowsOf(record, USER_FIELDS)) {
        users.push_back({row[0], row[1], row[2], row[3]});
    }
    return users;
}

bool isOnlyAdministrator(const User& user, const std::vector<User>& users) {
    const auto isOther = [&user](const User& each) {
        return each.role == ROLE_ADMINISTRATOR && each.name != user.name;
    };
    return user.role == ROLE_ADMINISTRATOR && std::none_of(users.begin(), users.end(), isOther);
}

int countSessions(CGIRequester& requester, const std::string& name) {
    const auto sessions = rowsOf(readRecord(requester, ITEM_SESSIONS), SESSION_FIELDS);
    return static_cast<int>(
        std::count_if(sessions.begin(), sessions.end(),
                      [&name](const Record& session) { return session.front() == name; }));
}

std::string listPartitions(const std::string& partitions) {
    std::string list;
    for (std::size_t partition = 0; partition < partitions.size(); ++partition) {
        if (isChosen(partitions, partition)) {
            list += (list.empty() ? "" : ", ") + std::to_string(partition);
        }
    }
    return list.empty() ? "-" : list;
}

PartitionsInput::PartitionsInput(const std::string& name, CGIRequester& requester)
    : ChecksInput(name), m_partitions(readPartitions(requester)) {
    for (const int partition : m_partitions) {
        addBox(std::to_string(partition));
    }
}

void PartitionsInput::setText(const std::string& text) {
    std::string boxes;
    for (const int partition : m_partitions) {
        boxes += isChosen(text, static_cast<std::size_t>(partition)) ? CHOSEN : NOT_CHOSEN;
    }
    ChecksInput::setText(boxes);
}

std::string PartitionsInput::getText() const {
    const std::string boxes = ChecksInput::getText();
    std::string text(MAX_PARTITIONS, NOT_CHOSEN);
    for (std::size_t i = 0; i < m_partitions.size(); ++i) {
        text[static_cast<std::size_t>(m_partitions[i])] = boxes[i];
    }
    return text;
}

}  // namespace Console
