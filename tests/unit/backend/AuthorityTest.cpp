#include <gtest/gtest.h>

#include <climits>
#include <numeric>
#include <sstream>

#include "gui/JudgeAuthority.h"
#include "gui/MaintenanceMode.h"
#include "orv/PException.h"

using ORVLib::Gui::CGI_AUTHORITY;
using ORVLib::Gui::CGIAuthority;
using ORVLib::Gui::JudgeAuthority;

namespace {

CGIAuthority user(unsigned int roles, unsigned int partitions = 0) {
    CGIAuthority authority;
    authority.setAuthority({roles, partitions});
    return authority;
}

CGI_AUTHORITY recordOf(const CGIAuthority& authority) {
    CGI_AUTHORITY record{};
    authority.getAuthority(record);
    return record;
}

TEST(Authority, RolesAreTheTopBits) {
    const CGIAuthority none = user(0x0fffffff);
    EXPECT_FALSE(none.isSystemAdmin() || none.isTechnicalStaff() || none.isGuest() ||
                 none.isOperator() || none.isSomePartitionAdmin());
    EXPECT_TRUE(user(0x80000000).isSystemAdmin());
    EXPECT_TRUE(user(0x40000000).isTechnicalStaff());
    EXPECT_TRUE(user(0x20000000).isGuest());
    EXPECT_TRUE(user(0x10000000).isOperator());
    EXPECT_TRUE(user(0, 1).isSomePartitionAdmin());
}

TEST(Authority, PartitionsAreThoseOfTheBoard) {
    CGIAuthority authority = user(0);
    for (const int n : {-1, 16, 31, 32, INT_MAX, INT_MIN}) {
        authority.setPartitionAdmin(n);
        EXPECT_FALSE(user(0, 0xffffffff).isPartitionAdmin(n)) << n;
    }
    EXPECT_EQ(recordOf(authority).partitions, 0U);
    authority.setPartitionAdmin(3);
    EXPECT_TRUE(authority.isPartitionAdmin(3));
    EXPECT_FALSE(authority.isPartitionAdmin(2));
}

TEST(Authority, IsAddedTo) {
    CGIAuthority authority = user(0x10000001, 0x80000000);
    authority.setConfigAuthority();
    EXPECT_EQ(recordOf(authority).roles, 0xd0000001);
    authority.setAllAuthority();
    EXPECT_EQ(recordOf(authority).roles, 0xf0000001);
    EXPECT_EQ(recordOf(authority).partitions, 0x8000ffff);
}

/// Functions by who may use them: administrator, partition administrator, guest, technical staff,
/// operator.
struct Pattern {
    const char* allowed;
    const char* functions;
};

const Pattern PATTERNS[] = {
    {"10000", "0-2 5-6 8 10 36-43 46 60-62 70 72-74 76-90 92-94 129-130 155"},
    {"11111", "4 7 11 63 75 95 146-147 153-154"},
    {"10010", "9 12-14 100-128 142-145 148-150 152"},
    {"10011", "16-17 22-23 26 28 137 140"},
    {"11011", "18-21 24-25 35 133-136 138-139"},
    {"11001", "30-34 45 47 49"},
    {"11101", "48"},
};

std::string allowedFor(int function) {
    for (const Pattern& pattern : PATTERNS) {
        std::istringstream ranges(pattern.functions);
        for (std::string range; ranges >> range;) {
            const std::size_t dash = range.find('-');
            const int first = std::stoi(range);
            const int last = dash == std::string::npos ? first : std::stoi(range.substr(dash + 1));
            if (function >= first && function <= last) {
                return pattern.allowed;
            }
        }
    }
    return "00000";
}

TEST(DisplayMode, EveryRoleSeesItsFunctionsAndNoOther) {
    const CGIAuthority users[] = {user(0x80000000), user(0, 4), user(0x20000000), user(0x40000000),
                                  user(0x10000000)};
    const CGIAuthority nobody = user(0);
    for (int function = -3; function < 170; ++function) {
        std::string allowed;
        for (const CGIAuthority& who : users) {
            allowed += JudgeAuthority(&who, function).getDisplayMode() == 1 ? '1' : '0';
        }
        EXPECT_EQ(allowed, allowedFor(function)) << function;
        EXPECT_EQ(JudgeAuthority(&nobody, function).getDisplayMode(), 0);
    }
    for (const int function : {INT_MIN, INT_MAX}) {
        EXPECT_EQ(JudgeAuthority(&users[0], function).getDisplayMode(), 0);
    }
}

TEST(DisplayMode, OfOnePartitionIsItsAdministrators) {
    const CGIAuthority who = user(0, 1U << 3);
    EXPECT_EQ(JudgeAuthority(&who, 30, 3).getDisplayMode(), 1);
    EXPECT_EQ(JudgeAuthority(&who, 30, 2).getDisplayMode(), 0);
    EXPECT_EQ(JudgeAuthority(&who, 30, 16).getDisplayMode(), 0);
}

TEST(MaintenanceRecord, CrossesTheWireAsItIs) {
    using Wrapper = ORVLib::ORVUi::PrimitiveTypeWrapper<ORVLib::ORVUi::ORV_MAINTENANCE_MODE>;
    unsigned char bytes[35];
    std::iota(std::begin(bytes), std::end(bytes), static_cast<unsigned char>(1));
    Wrapper wrapper;
    EXPECT_FALSE(wrapper.setSerialized(bytes, 35));
    EXPECT_TRUE(wrapper.setSerialized(bytes, 34));
    unsigned char out[35] = {};
    EXPECT_EQ(wrapper.getSerialized(out, 35), wrapper.getSerializedSize());
    EXPECT_EQ(std::string(out, out + 35), std::string(bytes, bytes + 34) + '\0');
    try {
        wrapper.getSerialized(out, 33);
        ADD_FAILURE();
    } catch (const ORVLib::PException& e) {
        EXPECT_EQ(e.getExceptionDetail(), 1537U);
    }
    EXPECT_TRUE(wrapper.setSerialized(bytes, 33));
    EXPECT_EQ(wrapper.getValue().bytes[33], 0);
}

}  // namespace
