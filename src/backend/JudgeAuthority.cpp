#include "gui/JudgeAuthority.h"

#include "gui/BackendNumbers.h"
#include "gui/CGIRequester.h"
#include "gui/MaintenanceMode.h"
#include "orv/CommonUtil.h"
#include "orv/GeneralPurposePacket.h"

namespace ORVLib::Gui {

namespace {

/// Columns of the mode table.
enum Column { SYSTEM_ADMIN, PARTITION_ADMIN, GUEST, TECHNICAL_STAFF, OPERATOR };

using MaintenanceMode = ORVUi::PrimitiveTypeWrapper<ORVUi::ORV_MAINTENANCE_MODE>;

bool isPowerFunction(int functionId) {
    return functionId == 10 || functionId == 30 || functionId == 47;
}

bool isInMaintenance(const ORVUi::ORV_MAINTENANCE_MODE& mode) {
    if (mode.bytes[ORVUi::ORV_MAINTENANCE_MODE::SYSTEM] != 0) {
        return true;
    }
    const int partitions = ORVUi::CommonUtil::getMaxPartitionNum();
    for (int n = 0; n < partitions && n < ORVUi::ORV_MAINTENANCE_MODE::PARTITIONS; ++n) {
        if (mode.bytes[ORVUi::ORV_MAINTENANCE_MODE::FIRST_PARTITION + n] != 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

// clang-format off
// Who may use each function:
//   system administrator, partition administrator, guest, technical staff, operator
const unsigned char JudgeAuthority::m_ModeTable[FUNCTIONS][ROLES] = {
    {1, 0, 0, 0, 0},  //   0
    {1, 0, 0, 0, 0},  //   1
    {1, 0, 0, 0, 0},  //   2
    {0, 0, 0, 0, 0},  //   3
    {1, 1, 1, 1, 1},  //   4
    {1, 0, 0, 0, 0},  //   5
    {1, 0, 0, 0, 0},  //   6
    {1, 1, 1, 1, 1},  //   7
    {1, 0, 0, 0, 0},  //   8
    {1, 0, 0, 1, 0},  //   9
    {1, 0, 0, 0, 0},  //  10
    {1, 1, 1, 1, 1},  //  11
    {1, 0, 0, 1, 0},  //  12
    {1, 0, 0, 1, 0},  //  13
    {1, 0, 0, 1, 0},  //  14
    {0, 0, 0, 0, 0},  //  15
    {1, 0, 0, 1, 1},  //  16
    {1, 0, 0, 1, 1},  //  17
    {1, 1, 0, 1, 1},  //  18
    {1, 1, 0, 1, 1},  //  19
    {1, 1, 0, 1, 1},  //  20
    {1, 1, 0, 1, 1},  //  21
    {1, 0, 0, 1, 1},  //  22
    {1, 0, 0, 1, 1},  //  23
    {1, 1, 0, 1, 1},  //  24
    {1, 1, 0, 1, 1},  //  25
    {1, 0, 0, 1, 1},  //  26
    {0, 0, 0, 0, 0},  //  27
    {1, 0, 0, 1, 1},  //  28
    {0, 0, 0, 0, 0},  //  29
    {1, 1, 0, 0, 1},  //  30
    {1, 1, 0, 0, 1},  //  31
    {1, 1, 0, 0, 1},  //  32
    {1, 1, 0, 0, 1},  //  33
    {1, 1, 0, 0, 1},  //  34
    {1, 1, 0, 1, 1},  //  35
    {1, 0, 0, 0, 0},  //  36
    {1, 0, 0, 0, 0},  //  37
    {1, 0, 0, 0, 0},  //  38
    {1, 0, 0, 0, 0},  //  39
    {1, 0, 0, 0, 0},  //  40
    {1, 0, 0, 0, 0},  //  41
    {1, 0, 0, 0, 0},  //  42
    {1, 0, 0, 0, 0},  //  43
    {0, 0, 0, 0, 0},  //  44
    {1, 1, 0, 0, 1},  //  45
    {1, 0, 0, 0, 0},  //  46
    {1, 1, 0, 0, 1},  //  47
    {1, 1, 1, 0, 1},  //  48
    {1, 1, 0, 0, 1},  //  49
    {0, 0, 0, 0, 0},  //  50
    {0, 0, 0, 0, 0},  //  51
    {0, 0, 0, 0, 0},  //  52
    {0, 0, 0, 0, 0},  //  53
    {0, 0, 0, 0, 0},  //  54
    {0, 0, 0, 0, 0},  //  55
    {0, 0, 0, 0, 0},  //  56
    {0, 0, 0, 0, 0},  //  57
    {0, 0, 0, 0, 0},  //  58
    {0, 0, 0, 0, 0},  //  59
    {1, 0, 0, 0, 0},  //  60
    {1, 0, 0, 0, 0},  //  61
    {1, 0, 0, 0, 0},  //  62
    {1, 1, 1, 1, 1},  //  63
    {0, 0, 0, 0, 0},  //  64
    {0, 0, 0, 0, 0},  //  65
    {0, 0, 0, 0, 0},  //  66
    {0, 0, 0, 0, 0},  //  67
    {0, 0, 0, 0, 0},  //  68
    {0, 0, 0, 0, 0},  //  69
    {1, 0, 0, 0, 0},  //  70
    {0, 0, 0, 0, 0},  //  71
    {1, 0, 0, 0, 0},  //  72
    {1, 0, 0, 0, 0},  //  73
    {1, 0, 0, 0, 0},  //  74
    {1, 1, 1, 1, 1},  //  75
    {1, 0, 0, 0, 0},  //  76
    {1, 0, 0, 0, 0},  //  77
    {1, 0, 0, 0, 0},  //  78
    {1, 0, 0, 0, 0},  //  79
    {1, 0, 0, 0, 0},  //  80
    {1, 0, 0, 0, 0},  //  81
    {1, 0, 0, 0, 0},  //  82
    {1, 0, 0, 0, 0},  //  83
    {1, 0, 0, 0, 0},  //  84
    {1, 0, 0, 0, 0},  //  85
    {1, 0, 0, 0, 0},  //  86
    {1, 0, 0, 0, 0},  //  87
    {1, 0, 0, 0, 0},  //  88
    {1, 0, 0, 0, 0},  //  89
    {1, 0, 0, 0, 0},  //  90
    {0, 0, 0, 0, 0},  //  91
    {1, 0, 0, 0, 0},  //  92
    {1, 0, 0, 0, 0},  //  93
    {1, 0, 0, 0, 0},  //  94
    {1, 1, 1, 1, 1},  //  95
    {0, 0, 0, 0, 0},  //  96
    {0, 0, 0, 0, 0},  //  97
    {0, 0, 0, 0, 0},  //  98
    {0, 0, 0, 0, 0},  //  99
    {1, 0, 0, 1, 0},  // 100
    {1, 0, 0, 1, 0},  // 101
    {1, 0, 0, 1, 0},  // 102
    {1, 0, 0, 1, 0},  // 103
    {1, 0, 0, 1, 0},  // 104
    {1, 0, 0, 1, 0},  // 105
    {1, 0, 0, 1, 0},  // 106
    {1, 0, 0, 1, 0},  // 107
    {1, 0, 0, 1, 0},  // 108
    {1, 0, 0, 1, 0},  // 109
    {1, 0, 0, 1, 0},  // 110
    {1, 0, 0, 1, 0},  // 111
    {1, 0, 0, 1, 0},  // 112
    {1, 0, 0, 1, 0},  // 113
    {1, 0, 0, 1, 0},  // 114
    {1, 0, 0, 1, 0},  // 115
    {1, 0, 0, 1, 0},  // 116
    {1, 0, 0, 1, 0},  // 117
    {1, 0, 0, 1, 0},  // 118
    {1, 0, 0, 1, 0},  // 119
    {1, 0, 0, 1, 0},  // 120
    {1, 0, 0, 1, 0},  // 121
    {1, 0, 0, 1, 0},  // 122
    {1, 0, 0, 1, 0},  // 123
    {1, 0, 0, 1, 0},  // 124
    {1, 0, 0, 1, 0},  // 125
    {1, 0, 0, 1, 0},  // 126
    {1, 0, 0, 1, 0},  // 127
    {1, 0, 0, 1, 0},  // 128
    {1, 0, 0, 0, 0},  // 129
    {1, 0, 0, 0, 0},  // 130
    {0, 0, 0, 0, 0},  // 131
    {0, 0, 0, 0, 0},  // 132
    {1, 1, 0, 1, 1},  // 133
    {1, 1, 0, 1, 1},  // 134
    {1, 1, 0, 1, 1},  // 135
    {1, 1, 0, 1, 1},  // 136
    {1, 0, 0, 1, 1},  // 137
    {1, 1, 0, 1, 1},  // 138
    {1, 1, 0, 1, 1},  // 139
    {1, 0, 0, 1, 1},  // 140
    {0, 0, 0, 0, 0},  // 141
    {1, 0, 0, 1, 0},  // 142
    {1, 0, 0, 1, 0},  // 143
    {1, 0, 0, 1, 0},  // 144
    {1, 0, 0, 1, 0},  // 145
    {1, 1, 1, 1, 1},  // 146
    {1, 1, 1, 1, 1},  // 147
    {1, 0, 0, 1, 0},  // 148
    {1, 0, 0, 1, 0},  // 149
    {1, 0, 0, 1, 0},  // 150
    {0, 0, 0, 0, 0},  // 151
    {1, 0, 0, 1, 0},  // 152
    {1, 1, 1, 1, 1},  // 153
    {1, 1, 1, 1, 1},  // 154
    {1, 0, 0, 0, 0},  // 155
    {0, 0, 0, 0, 0},  // 156
    {0, 0, 0, 0, 0},  // 157
    {0, 0, 0, 0, 0},  // 158
    {0, 0, 0, 0, 0},  // 159
};
// clang-format on

int JudgeAuthority::getDisplayMode() const {
    if (m_authority == nullptr || m_functionId < 0 || m_functionId >= FUNCTIONS) {
        return 0;
    }
    const unsigned char* const allowed = m_ModeTable[m_functionId];
    const bool partitionAdmin = m_partition < 0 ? m_authority->isSomePartitionAdmin()
                                                : m_authority->isPartitionAdmin(m_partition);
    const bool display = (allowed[SYSTEM_ADMIN] != 0 && m_authority->isSystemAdmin()) ||
                         (allowed[TECHNICAL_STAFF] != 0 && m_authority->isTechnicalStaff()) ||
                         (allowed[PARTITION_ADMIN] != 0 && partitionAdmin) ||
                         (allowed[GUEST] != 0 && m_authority->isGuest()) ||
                         (allowed[OPERATOR] != 0 && m_authority->isOperator());
    return display ? 1 : 0;
}

int JudgeAuthority::preCheckDisplayMode(CGIRequester& requester) const {
    if (!isPowerFunction(m_functionId) || m_authority == nullptr ||
        !m_authority->isTechnicalStaff()) {
        return UNDECIDED;
    }
    MaintenanceMode mode;
    if (requester.getInfo(ITEM_MAINTENANCE_MODE, mode) == 0 || !isInMaintenance(mode.getValue())) {
        return UNDECIDED;
    }
    ORVUi::GeneralPurposePacket packet;
    if (requester.getInfo(ITEM_MAINTENANCE_POWER, packet) == 0) {
        return REFUSED;
    }
    const auto* const power =
        dynamic_cast<const ORVUi::PrimitiveTypeWrapper<long>*>(packet.getCompInfo(0));
    return power != nullptr && power->getValue() != 0 ? ALLOWED : REFUSED;
}

}  // namespace ORVLib::Gui
