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

}  // namespace Console
