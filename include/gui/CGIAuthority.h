#pragma once

#include "gui/Export.h"

namespace ORVLib::Gui {

/// A user's rights, as a telegram carries them.
struct CGI_AUTHORITY {
    unsigned int roles;       // the top four bits, see CGIAuthority; the others are zero
    unsigned int partitions;  // bit n: the user administers partition n
};

/// A user's roles: system administrator, technical staff, guest, operator and administrator of
/// partitions, in any combination.
///
/// @code
/// CGIAuthority authority;
/// authority.setPartitionAdmin(3);
/// const bool allowed = authority.isSystemAdmin() || authority.isPartitionAdmin(3);
/// std::cout << allowed;
/// @endcode
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

    /// Replaces all roles and partitions, or copies them to `authority`.
    void setAuthority(const CGI_AUTHORITY& authority) { m_authority = authority; }
    void getAuthority(CGI_AUTHORITY& authority) const { authority = m_authority; }

    /// Whether the user has a role. A user may have several.
    bool isSystemAdmin() const { return (m_authority.roles & SYSTEM_ADMIN) != 0; }
    bool isTechnicalStaff() const { return (m_authority.roles & TECHNICAL_STAFF) != 0; }
    bool isGuest() const { return (m_authority.roles & GUEST) != 0; }
    bool isOperator() const { return (m_authority.roles & OPERATOR) != 0; }

    /// Whether the user administers at least one partition.
    bool isSomePartitionAdmin() const { return m_authority.partitions != 0; }

    /// Whether the user administers `partition`. False for a number that the board does not have.
    bool isPartitionAdmin(int partition) const;

    /// Makes the user an administrator of `partition`. Ignores a number that the board does not
    /// have.
    void setPartitionAdmin(int partition);

    /// Adds the roles system administrator and technical staff.
    void setConfigAuthority();

    /// Adds every role and every partition of the board.
    void setAllAuthority();

private:
    CGI_AUTHORITY m_authority{};
};

}  // namespace ORVLib::Gui
