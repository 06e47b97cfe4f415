#pragma once

#include <exception>
#include <string>

#include "gui/FormInfo.h"
#include "orv/PException.h"
#include "shared/access/Origin.h"

namespace Console {

/// Answers a request that could not even be read. Returns the program's exit status.
int refuseRequest(const std::string& reason);

/// Answers a request that another site made a browser send. Returns the program's exit status.
int refuseForeignPost();

/// Lets a log or a page that cannot be written be a failed write, not the end of the program.
void ignoreOutputSignals();

/// A page program's main(): reads the request, unless another site made it, and runs a main object
/// on it.
template <typename Main>
int runProgram() {
    ignoreOutputSignals();
    if (isForeignPost()) {
        return refuseForeignPost();
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

}  // namespace Console
