#pragma once

#include "gui/CGIAuthority.h"
#include "gui/Export.h"

namespace ORVLib::Gui {

class CGIRequester;

/// Decides whether a user may use a function of the console.
///
/// @code
/// CGIAuthority user;
/// user.setPartitionAdmin(3);
/// CGIRequester requester("the session ID from the cookie");
/// const JudgeAuthority judge(&user, 30, 3);  // the power of partition 3
/// const int rule = judge.preCheckDisplayMode(requester);
/// const bool allowed = rule == JudgeAuthority::UNDECIDED ? judge.getDisplayMode() != 0
///                                                        : rule == JudgeAuthority::ALLOWED;
/// if (!allowed) std::cout << "You may not do this.";
/// @endcode
class ORVGUI_EXPORT JudgeAuthority {
public:
    /// The partition number for a function that does not concern a particular partition.
    static constexpr int NO_PARTITION = -1;

    /// Results of preCheckDisplayMode().
    enum PreCheck { REFUSED = 0, ALLOWED = 1, UNDECIDED = 2 };

    /// `authority` holds the user's rights. It is not owned and must outlive the object; null is a
    /// user without any right.
    JudgeAuthority(const CGIAuthority* authority, int functionId, int partition = NO_PARTITION)
        : m_authority(authority), m_functionId(functionId), m_partition(partition) {}

    /// Returns 1 when one of the user's roles may use the function, otherwise 0. Nobody may use a
    /// function ID outside 0 to 159.
    int getDisplayMode() const;

    /// Applies the rule for technical staff while the board is in maintenance: they may use the
    /// power functions only with the board's permission. Call it before getDisplayMode(). Returns a
    /// PreCheck; for UNDECIDED, getDisplayMode() decides. Queries the daemon only when the rule may
    /// apply.
    int preCheckDisplayMode(CGIRequester& requester) const;

private:
    static constexpr int FUNCTIONS = 160;
    static constexpr int ROLES = 5;
    static const unsigned char m_ModeTable[FUNCTIONS][ROLES];

    const CGIAuthority* m_authority;
    int m_functionId;
    int m_partition;
};

}  // namespace ORVLib::Gui
