// The parts of the server that are in maintenance, and whether technical staff may switch the power
// then.

#include <algorithm>
#include <iterator>
#include <string>

#include "framework/backend/Board.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Partitions.h"
#include "framework/page/Program.h"
#include "framework/page/SettingsPage.h"
#include "gui/MaintenanceMode.h"
#include "orv/GeneralPurposePacket.h"
#include "orv/PException.h"

using namespace ORVLib::Gui;
using ORVLib::ORVUi::GeneralPurposePacket;
using ORVLib::ORVUi::ORV_MAINTENANCE_MODE;
using PowerPermission = ORVLib::ORVUi::PrimitiveTypeWrapper<long>;

namespace Console {

namespace {

constexpr char CHECKED[] = "1";
constexpr char UNCHECKED[] = "0";

class MaintenancePage : public SettingsPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_MAINTENANCE_MODE);

    explicit MaintenancePage(const PageContext& context)
        : SettingsPage(context, FUNCTION, TEXT_MAINTENANCE_MODE_PURPOSE) {
        addMark(ORV_MAINTENANCE_MODE::SYSTEM, text(TEXT_WHOLE_SYSTEM));
        for (const int partition : readPartitions(context.requester)) {
            addMark(ORV_MAINTENANCE_MODE::FIRST_PARTITION + partition, partitionName(partition));
        }
        // Technical staff may set the maintenance mode, but not their permission.
        if (context.authority.isSystemAdmin()) {
            m_permission = &add(TEXT_STAFF_POWER, TEXT_WRONG_CHOICE,
                                std::make_unique<FlagInput>("permission", text(TEXT_ALLOWED),
                                                            text(TEXT_NOT_ALLOWED)));
        }
    }

protected:
    void readCurrent() override {
        const ORV_MAINTENANCE_MODE mode = readMode();
        for (const Mark& mark : m_marks) {
            mark.input->setText(mode.bytes[mark.byte] != 0 ? CHECKED : UNCHECKED);
        }
        if (m_permission != nullptr) {
            m_permission->setText(readPermission() ? CHECKED : UNCHECKED);
        }
    }

    /// Writes the items that differ. If the second write fails, the first is undone.
    void apply() override {
        const ORV_MAINTENANCE_MODE present = readMode();
        const ORV_MAINTENANCE_MODE wanted = wantedMode(present);
        const bool isModeChanged = !std::equal(std::begin(present.bytes), std::end(present.bytes),
                                               std::begin(wanted.bytes));
        const bool isPermissionChanged =
            m_permission != nullptr && readPermission() == m_permission->isEmpty();
        if (isPermissionChanged) {
            writePermission(!m_permission->isEmpty());
        }
        if (!isModeChanged) {
            return;
        }
        try {
            writeMode(wanted);
        } catch (const ORVLib::PException&) {
            if (isPermissionChanged) {
                trySetPermission(m_permission->isEmpty());
            }
            throw;
        }
    }

private:
    /// A byte of the mode, and the check box for it.
    struct Mark {
        int byte;
        FlagInput* input;
    };

    void addMark(int byte, const std::string& label) {
        m_marks.push_back({byte, &add(label, TEXT_WRONG_CHOICE,
                                      std::make_unique<FlagInput>(
                                          "mode" + std::to_string(byte) + '_',
                                          text(TEXT_IN_MAINTENANCE), text(TEXT_IN_OPERATION)))});
    }

    /// The mode after the check boxes. A byte that agrees with its check box does not change.
    ORV_MAINTENANCE_MODE wantedMode(ORV_MAINTENANCE_MODE mode) const {
        for (const Mark& mark : m_marks) {
            unsigned char& byte = mode.bytes[mark.byte];
            const bool wanted = !mark.input->isEmpty();
            byte = (byte != 0) == wanted ? byte : wanted;
        }
        return mode;
    }

    ORV_MAINTENANCE_MODE readMode() const {
        ORV_MAINTENANCE_MODE mode;
        if (getRequester().getInfo(ITEM_MAINTENANCE_MODE, mode.bytes, sizeof mode.bytes) == 0) {
            throwRequesterError(getRequester());
        }
        return mode;
    }

    void writeMode(const ORV_MAINTENANCE_MODE& mode) const {
        const std::string bytes(std::begin(mode.bytes), std::end(mode.bytes));
        writeBytes(getRequester(), ITEM_MAINTENANCE_MODE, bytes, {});
    }

    /// A packet without a number permits nothing. The library's rule for technical staff says the
    /// same.
    bool readPermission() const {
        GeneralPurposePacket packet;
        if (getRequester().getInfo(ITEM_MAINTENANCE_PERMISSION, packet) == 0) {
            throwRequesterError(getRequester());
        }
        const auto* const number = dynamic_cast<const PowerPermission*>(packet.getCompInfo(0));
        return number != nullptr && number->getValue() != 0;
    }

    bool trySetPermission(bool permitted) const {
        GeneralPurposePacket packet;
        packet.addComponent(std::make_unique<PowerPermission>(permitted ? 1 : 0));
        return getRequester().setInfo(ITEM_MAINTENANCE_PERMISSION | ACCESS_WRITE, packet) != 0;
    }

    void writePermission(bool permitted) const {
        if (!trySetPermission(permitted)) {
            throwRequesterError(getRequester());
        }
    }

    std::vector<Mark> m_marks;
    FlagInput* m_permission = nullptr;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::MaintenancePage>>();
}
