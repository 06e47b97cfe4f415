#pragma once

#include "framework/page/RecordPage.h"

namespace Console {

/// A page that switches the power: of the partition the page works on, otherwise of all of them.
///
/// Only what makes sense in the present power state can be chosen, and nothing is chosen before
/// the user does.
class PowerPage : public RecordPage {
protected:
    PowerPage(const PageContext& context, Function function, Text purpose);

    void readCurrent() override {}
    std::string getConfirmation() override;

private:
    struct Operation;
    static const Operation OPERATIONS[];

    void addOperations(bool on);

    RadioInput& m_operation;
};

}  // namespace Console
