#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <string>

#include "orv/CommonUtil.h"
#include "orv/GeneralPurposePacket.h"
#include "orv/PartitionOperatorInfo.h"
#include "orv/PrimitiveTypeWrapper.h"

namespace ORVLib::ORVUi {

namespace {

using namespace std::string_literals;
using Long = PrimitiveTypeWrapper<long>;

std::string serialized(const SerializableObject& object) {
    std::string bytes(object.getSerializedSize(), '\xee');
    const auto size = static_cast<unsigned int>(bytes.size());
    EXPECT_NE(object.getSerialized(reinterpret_cast<unsigned char*>(bytes.data()), size), 0U);
    return bytes;
}

// From memory of exactly the text's size, so that the sanitizer sees a read past it.
bool take(SerializableObject& object, const std::string& bytes) {
    const auto exact = std::make_unique<unsigned char[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), exact.get());
    return object.setSerialized(exact.get(), static_cast<unsigned int>(bytes.size()));
}

struct LongCase {
    long value;
    std::string bytes;
};

class LongOnTheWire : public testing::TestWithParam<LongCase> {};

TEST_P(LongOnTheWire, IsFourBigEndianBytes) {
    EXPECT_EQ(serialized(Long(GetParam().value)), GetParam().bytes);
    Long read(77);
    EXPECT_TRUE(take(read, GetParam().bytes));
    EXPECT_EQ(read.getValue(), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Values, LongOnTheWire,
                         testing::Values(LongCase{0, "\0\0\0\0"s}, LongCase{1, "\0\0\0\1"s},
                                         LongCase{-2, "\xff\xff\xff\xfe"s},
                                         LongCase{0x12345678, "\x12\x34\x56\x78"s},
                                         LongCase{INT_MAX, "\x7f\xff\xff\xff"s},
                                         LongCase{INT_MIN, "\x80\0\0\0"s}));

TEST(LongWrapper, RefusesEverySizeButFour) {
    Long wrapper(5);
    for (const std::string& bytes : {""s, "\0\0\1"s, "\0\0\0\0\1"s, "\0\0\0\0\0\0\0\1"s}) {
        EXPECT_FALSE(take(wrapper, bytes)) << bytes.size();
    }
    EXPECT_EQ(wrapper.getValue(), 5);
    unsigned char small[3];
    EXPECT_EQ(wrapper.getSerialized(small, sizeof small), 0U);
}

TEST(LongWrapper, DoesNotCutAValueThatFourBytesDoNotHold) {
    if (sizeof(long) == 4) {
        GTEST_SKIP() << "a long has 32 bits here";
    }
    unsigned char buffer[4];
    const long beyond = static_cast<long>(INT_MAX) + 1L;
    EXPECT_EQ(Long(beyond).getSerialized(buffer, sizeof buffer), 0U);
}

const std::string TWO_COMPONENTS =
    "\0\0\0\2"
    "\0\0\0\1"
    "\0\0\0\4"
    "\xff\xff\xff\xff"
    "\0\0\0\1"
    "\0\0\0\4"
    "\0\0\0\x09"s;

long valueOf(SerializableObject* component) {
    const auto* const wrapper = dynamic_cast<Long*>(component);
    return wrapper != nullptr ? wrapper->getValue() : LONG_MIN;
}

TEST(Packet, CarriesItsComponents) {
    GeneralPurposePacket sent;
    EXPECT_EQ(serialized(sent), "\0\0\0\0"s);
    sent.addComponent(std::make_unique<Long>(-1));
    sent.addComponent(std::make_unique<Long>(9));
    EXPECT_EQ(serialized(sent), TWO_COMPONENTS);
    unsigned char small[27];
    EXPECT_EQ(sent.getSerialized(small, sizeof small), 0U);

    GeneralPurposePacket read;
    ASSERT_TRUE(take(read, TWO_COMPONENTS));
    EXPECT_EQ(valueOf(read.getCompInfo(0)), -1);
    EXPECT_EQ(valueOf(read.getCompInfo(1)), 9);
    for (const int index : {-1, 2, INT_MAX, INT_MIN}) {
        EXPECT_EQ(read.getCompInfo(index), nullptr) << index;
    }
}

TEST(Packet, RefusesDamagedBytesAndStaysAsItWas) {
    GeneralPurposePacket packet;
    packet.addComponent(std::make_unique<Long>(7));
    for (std::size_t size = 0; size < TWO_COMPONENTS.size(); ++size) {
        EXPECT_FALSE(take(packet, TWO_COMPONENTS.substr(0, size))) << size;
    }
    const std::string damaged[] = {
        TWO_COMPONENTS + "\0"s,
        "\xff\xff\xff\xff"s + TWO_COMPONENTS.substr(4),  // count
        "\0\0\0\1"
        "\0\0\0\2"
        "\0\0\0\4"
        "\0\0\0\1"s,  // kind
        "\0\0\0\1"
        "\0\0\0\1"
        "\0\0\0\5"
        "\0\0\0\1"s,  // length too long
        "\0\0\0\1"
        "\0\0\0\1"
        "\xff\xff\xff\xff"
        "\0\0\0\1"s,  // length wraps
        "\0\0\0\1"
        "\0\0\0\1"
        "\0\0\0\3"
        "\0\0\1"s,  // no long
    };
    for (const std::string& bytes : damaged) {
        EXPECT_FALSE(take(packet, bytes)) << testing::PrintToString(bytes);
    }
    EXPECT_EQ(valueOf(packet.getCompInfo(0)), 7);
    EXPECT_EQ(packet.getCompInfo(1), nullptr);
}

TEST(Partitions, AreBitsFromTheLeastSignificant) {
    const PartitionOperatorInfo info;
    EXPECT_EQ(CommonUtil::getMaxPartitionNum(), 16);
    EXPECT_EQ(info.setOperablePartition(0x8, 0), 0x9U);
    EXPECT_EQ(info.setOperablePartition(0, 31), 0x80000000U);
    EXPECT_TRUE(info.isOperablePartition(0x9, 3));
    EXPECT_FALSE(info.isOperablePartition(0x9, 2));
    for (const int n : {-1, 32, INT_MAX, INT_MIN}) {
        EXPECT_EQ(info.setOperablePartition(0x9, n), 0x9U) << n;
        EXPECT_FALSE(info.isOperablePartition(UINT_MAX, n)) << n;
    }
}

}  // namespace

}  // namespace ORVLib::ORVUi
