#pragma once

#include <string>
#include <vector>

#include "framework/input/ChecksInput.h"
#include "gui/CGIRequester.h"

/// The users of the console.
namespace Console {

/// The fields of a session in the board's list; the first one is the user.
constexpr std::size_t SESSION_FIELDS = 5;

/// A user, as the board returns it.
struct User {
    std::string name;
    std::string role;
    std::string partitions;  ///< "1" or "0" for each partition
    std::string language;
};

/// All users. A failure ends in the error page.
std::vector<User> readUsers(ORVLib::Gui::CGIRequester& requester);

/// True when no other user is an administrator.
bool isOnlyAdministrator(const User& user, const std::vector<User>& users);

/// The sessions of a user. A failure ends in the error page.
int countSessions(ORVLib::Gui::CGIRequester& requester, const std::string& name);

/// The numbers of a user's partitions: "0, 3".
std::string listPartitions(const std::string& partitions);

/// Check boxes for the partitions that the board has. The text is "1" or "0" for each partition
/// that a board can have.
class PartitionsInput : public ChecksInput {
public:
    /// Reads the partitions from the board. A failure ends in the error page.
    PartitionsInput(const std::string& name, ORVLib::Gui::CGIRequester& requester);

    void setText(const std::string& text) override;
    std::string getText() const override;

private:
    std::vector<int> m_partitions;
};

}  // namespace Console
