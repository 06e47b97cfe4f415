#include "framework/page/PowerPage.h"

#include "framework/page/Partitions.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int OPERATION_CARRIED_OUT = 280;

bool isForPartition(const PageContext& context) {
    return context.partition != JudgeAuthority::NO_PARTITION;
}

Function functionFor(const PageContext& context) {
    return isForPartition(context) ? functionOf(TEXT_PARTITION_POWER)
                                   : functionOf(TEXT_SYSTEM_POWER);
}

Text purposeFor(const PageContext& context) {
    return isForPartition(context) ? TEXT_PARTITION_POWER_PURPOSE : TEXT_SYSTEM_POWER_PURPOSE;
}

unsigned int itemFor(const PageContext& context) {
    return isForPartition(context)
               ? ITEM_PARTITION_POWER + static_cast<unsigned int>(context.partition)
               : ITEM_SYSTEM_POWER;
}

bool isOn(const PageContext& context) {
    const Record power = readRecord(context.requester, itemFor(context));
    return RecordReader(power).next() == "on";
}

}  // namespace

struct PowerPage::Operation {
    const char* name;
    Text label;
    Text consequence;
    bool whenOn;     ///< allowed when the power is on, otherwise when it is off
    bool losesData;  ///< does not shut the operating system down
};

const PowerPage::Operation PowerPage::OPERATIONS[] = {
    {"on", TEXT_POWER_ON, TEXT_CONFIRM_POWER_ON, false, false},
    {"off", TEXT_POWER_OFF, TEXT_CONFIRM_POWER_OFF, true, false},
    {"force-off", TEXT_FORCE_OFF, TEXT_CONFIRM_FORCE_OFF, true, true},
    {"reset", TEXT_POWER_RESET, TEXT_CONFIRM_POWER_RESET, true, true},
};

PowerPage::PowerPage(const PageContext& context)
    : RecordPage(context, functionFor(context), purposeFor(context), itemFor(context)),
      m_operation(
          add(TEXT_OPERATION, TEXT_WRONG_CHOICE, std::make_unique<RadioInput>("operation"))) {
    const bool on = isOn(context);
    addShown(TEXT_APPLIES_TO, isForPartition(context) ? partitionName(context.partition)
                                                      : text(TEXT_ALL_PARTITIONS));
    addShown(TEXT_POWER_NOW,
             on ? makeText(text(TEXT_ON), TextString::NORMAL_COLOUR) : makeText(text(TEXT_OFF)));
    addOperations(on);
    setCompletion(OPERATION_CARRIED_OUT);
}

void PowerPage::addOperations(bool on) {
    for (const Operation& operation : OPERATIONS) {
        // The system is on when any partition is: the others can still be switched on.
        const bool always = !operation.whenOn && !isForPartition(getContext());
        if (operation.whenOn == on || always || getStep() == Step::DONE) {
            m_operation.addOption(operation.name, text(operation.label));
        }
    }
}

/// Null for none.
const PowerPage::Operation* PowerPage::chosen() const {
    for (const Operation& operation : OPERATIONS) {
        if (m_operation.getText() == operation.name) {
            return &operation;
        }
    }
    return nullptr;
}

bool PowerPage::isDangerous() const {
    const Operation* const operation = chosen();
    return operation != nullptr && operation->losesData;
}

std::string PowerPage::getConfirmation() {
    const Operation* const operation = chosen();
    if (operation == nullptr) {
        return "";
    }
    setApplyLabel(operation->label);  // the button names what it does
    return text(operation->consequence);
}

}  // namespace Console
