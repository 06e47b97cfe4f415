#pragma once

#include "framework/page/RecordPage.h"

namespace Console {

/// A page that switches the power: of the partition that the page works on, otherwise of all.
///
/// The user can choose only the operations that the present power state allows; none is chosen at
/// first.
class PowerPage : public RecordPage {
public:
    explicit PowerPage(const PageContext& context);

protected:
    bool isCompared() const override { return false; }
    void readCurrent() override {}
    std::string getConfirmation() override;
    bool isDangerous() const override;

private:
    struct Operation;
    static const Operation OPERATIONS[];

    void addOperations(bool on);
    const Operation* chosen() const;

    RadioInput& m_operation;
};

}  // namespace Console
