#include "framework/access/Rights.h"

using namespace ORVLib::Gui;

namespace Console {

bool mayUse(CGIRequester& requester, const CGIAuthority& authority, Function function,
            int partition) {
    if (entryOf(function).access == Access::ANY_SESSION) {
        return true;
    }
    const JudgeAuthority judge(&authority, function, partition);
    const int verdict = judge.preCheckDisplayMode(requester);
    return verdict == JudgeAuthority::UNDECIDED ? judge.getDisplayMode() != 0
                                                : verdict == JudgeAuthority::ALLOWED;
}

std::vector<Text> rolesFor(Function function) {
    struct Role {
        CGI_AUTHORITY authority;
        Text name;
    };
    const Text partition = entryOf(function).topMenu == MENU_PARTITION ? TEXT_ROLE_THIS_PARTITION
                                                                       : TEXT_ROLE_PARTITION;
    const Role ROLES[] = {
        {{CGIAuthority::SYSTEM_ADMIN, 0}, TEXT_ROLE_ADMINISTRATOR},
        {{0, 1}, partition},
        {{CGIAuthority::OPERATOR, 0}, TEXT_ROLE_OPERATOR},
        {{CGIAuthority::TECHNICAL_STAFF, 0}, TEXT_ROLE_STAFF},
        {{CGIAuthority::GUEST, 0}, TEXT_ROLE_GUEST},
    };
    std::vector<Text> names;
    for (const Role& role : ROLES) {
        CGIAuthority authority;
        authority.setAuthority(role.authority);
        if (JudgeAuthority(&authority, function).getDisplayMode() != 0) {
            names.push_back(role.name);
        }
    }
    return names;
}

}  // namespace Console
