#pragma once

#include <exception>
#include <optional>
#include <string>

#include "framework/access/Functions.h"
#include "framework/access/PageLimits.h"
#include "gui/FormInfo.h"
#include "orv/PException.h"

namespace Console {

/// The requests that a page accepts.
struct RequestRules {
    /// A page without a file accepts forms of up to 64 KiB.
    bool takesFile = false;
    /// The function whose right is checked before a body is read; nothing is checked without it.
    std::optional<Function> function;
    /// A page in a reserved place is answered when all ordinary places are taken, and waits only a
    /// second for a board that hangs.
    Places places = Places::ORDINARY;
};

/// Answers a request that cannot be read. Returns the program's exit status.
int refuseRequest(const std::string& reason);

/// Limits the resources of this process and decides, before the body is read, whether to accept the
/// request. Returns the program's exit status after a refusal, which has been answered. The body
/// counts as empty when its user has no right to the page's function.
std::optional<int> admitRequest(const RequestRules& rules);

/// The main() of a page: reads the request if it is accepted, and runs the page's main object.
template <typename Main>
int runProgram(const RequestRules& rules = {}) {
    if (const std::optional<int> refused = admitRequest(rules)) {
        return *refused;
    }
    std::unique_ptr<ORVLib::Gui::FormInfo> form;
    try {
        form = std::make_unique<ORVLib::Gui::FormInfo>();
    } catch (const ORVLib::PException& e) {
        return refuseRequest("exception detail " + std::to_string(e.getExceptionDetail()));
    } catch (const std::exception& e) {
        return refuseRequest(e.what());
    }
    ORVLib::Gui::FormInfo::myInstance = form.get();
    return Main(*form).exec();
}

/// As runProgram(), for a page that accepts a file from users with the right to `function`.
template <typename Main>
int runUploadProgram(Function function) {
    return runProgram<Main>({true, function, Places::ORDINARY});
}

}  // namespace Console
