#pragma once

#include "gui/CGIAuthority.h"
#include "gui/Export.h"

namespace ORVLib::Gui {

class CGIRequester;

/// Decides whether a user may see the page of a function.
class ORVGUI_EXPORT JudgeAuthority {
public:
    /// The partition number of a page that concerns no particular one.
    static constexpr int NO_PARTITION = -1;

    /// What preCheckDisplayMode() says.
    enum PreCheck { REFUSED = 0, ALLOWED = 1, UNDECIDED = 2 };

    /// `authority` is not owned and must outlive the object. Null is a user without any right.
    JudgeAuthority(const CGIAuthority* authority, int functionId, int partition = NO_PARTITION)
        : m_authority(authority), m_functionId(functionId), m_partition(partition) {}

    /// Returns 1 when one of the user's roles may use the function, otherwise 0. A function ID
    /// outside 0 to 159 allows nobody.
    int getDisplayMode() const;

    /// The rule for technical staff while the board is in maintenance, to be asked first: they use
    /// the power functions only when the board says so. Returns a PreCheck; UNDECIDED leaves the
    /// decision to getDisplayMode(). Asks the daemon only when the rule may apply.
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
