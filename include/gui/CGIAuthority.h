#pragma once

#include "gui/Export.h"

namespace ORVLib::Gui {

/// A user's rights as they travel in a telegram.
struct CGI_AUTHORITY {
    unsigned int roles;       // the top four bits, see CGIAuthority; the others are zero
    unsigned int partitions;  // the partitions the user administers
};

/// What a user may be: system administrator, technical staff, guest, operator, administrator of
/// partitions, any of them together.
class ORVGUI_EXPORT CGIAuthority {
public:
    /// Bits of CGI_AUTHORITY::roles.
    static constexpr unsigned int SYSTEM_ADMIN = 1U << 31;
    static constexpr unsigned int TECHNICAL_STAFF = 1U << 30;
    static constexpr unsigned int GUEST = 1U << 29;
    static constexpr unsigned int OPERATOR = 1U << 28;

    /// A user without any right.
    CGIAuthority() = default;
    CGIAuthority(const CGIAuthority&) = default;
    CGIAuthority& operator=(const CGIAuthority&) = default;
    virtual ~CGIAuthority();

    /// All rights at once, as they come from the daemon.
    void setAuthority(const CGI_AUTHORITY& authority) { m_authority = authority; }
    void getAuthority(CGI_AUTHORITY& authority) const { authority = m_authority; }

    /// The roles. A user may have several.
    bool isSystemAdmin() const { return (m_authority.roles & SYSTEM_ADMIN) != 0; }
    bool isTechnicalStaff() const { return (m_authority.roles & TECHNICAL_STAFF) != 0; }
    bool isGuest() const { return (m_authority.roles & GUEST) != 0; }
    bool isOperator() const { return (m_authority.roles & OPERATOR) != 0; }

    /// Whether there is a partition that the user administers.
    bool isSomePartitionAdmin() const { return m_authority.partitions != 0; }

    /// False for a number that no partition of the board has.
    bool isPartitionAdmin(int partition) const;

    /// Ignores a number that no partition of the board has.
    void setPartitionAdmin(int partition);

    /// Adds system administrator and technical staff.
    void setConfigAuthority();

    /// Adds every role and every partition of the board.
    void setAllAuthority();

private:
    CGI_AUTHORITY m_authority{};
};

}  // namespace ORVLib::Gui
