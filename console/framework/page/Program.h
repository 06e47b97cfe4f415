#pragma once

#include <exception>
#include <optional>
#include <string>

#include "framework/access/Functions.h"
#include "framework/access/PageLimits.h"
#include "gui/FormInfo.h"
#include "orv/PException.h"

namespace Console {

/// What a page expects of its requests.
struct RequestRules {
    /// A page that takes no file gets forms of up to 64 KiB.
    bool takesFile = false;
    /// The function whose right a user needs before a body is read; without one, nobody is asked.
    std::optional<Function> function;
    /// Pages that are answered when all others have to wait have reserved places; they wait for a
    /// board that hangs for a second only.
    Places places = Places::ORDINARY;
};

/// Answers a request that could not even be read. Returns the program's exit status.
int refuseRequest(const std::string& reason);

/// Limits what this process may use and decides, before anything of the body is read, whether the
/// request is taken at all. Returns the program's exit status when it has been refused and
/// answered. The body of a file page's user who has not the right to it counts as empty.
std::optional<int> admitRequest(const RequestRules& rules);

/// A page program's main(): reads the request, when it is admitted, and runs a main object on it.
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

/// As runProgram(), for a page that takes a file from users with the right to `function`.
template <typename Main>
int runUploadProgram(Function function) {
    return runProgram<Main>({true, function, Places::ORDINARY});
}

}  // namespace Console
