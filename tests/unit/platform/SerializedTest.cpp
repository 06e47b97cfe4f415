#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <string>
#include <tuple>

#include "orv/CommonUtil.h"
#include "orv/GeneralPurposePacket.h"
#include "orv/PException.h"
#include "orv/PartitionOperatorInfo.h"
#include "orv/PrimitiveTypeWrapper.h"
#include "support/ScriptedDaemon.h"

namespace ORVLib::ORVUi {

namespace {

using namespace std::string_literals;
using Long = PrimitiveTypeWrapper<long>;

// Into memory of exactly `size` bytes; empty when the object refused.
std::string serialized(const SerializableObject& object, unsigned int size) {
    const auto exact = std::make_unique<unsigned char[]>(size);
    return {exact.get(), exact.get() + object.getSerialized(exact.get(), size)};
}

// From memory of exactly the text's size, so that the sanitizer sees a read past it.
bool take(SerializableObject& object, const std::string& bytes) {
    const auto exact = std::make_unique<unsigned char[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), exact.get());
    return object.setSerialized(exact.get(), static_cast<unsigned int>(bytes.size()));
}

TEST(LongWrapper, IsFourBigEndianBytes) {
    using Case = std::tuple<long, std::string>;
    for (const auto& [value, sent] :
         {Case{0x12345678, "\x12\x34\x56\x78"s}, Case{-2, "\xff\xff\xff\xfe"s},
          Case{INT_MAX, "\x7f\xff\xff\xff"s}, Case{INT_MIN, "\x80\0\0\0"s}}) {
        EXPECT_EQ(Long().getSerializedSize(), 4U);
        EXPECT_EQ(serialized(Long(value), 4), sent);
        EXPECT_EQ(serialized(Long(value), 3), "");
        Long read(77);
        EXPECT_TRUE(take(read, sent));
        for (const std::string& bytes : {""s, "\0\0\1"s, "\0\0\0\0\1"s}) {
            EXPECT_FALSE(take(read, bytes)) << bytes.size();
        }
        EXPECT_EQ(read.getValue(), value);
    }
    if constexpr (sizeof(long) > sizeof(int)) {
        EXPECT_EQ(serialized(Long(INT_MAX + 1L), 4), "") << "four bytes do not hold it";
    }
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
    EXPECT_EQ(serialized(sent, 4), "\0\0\0\0"s);
    sent.addComponent(std::make_unique<Long>(-1));
    sent.addComponent(std::make_unique<Long>(9));
    EXPECT_EQ(sent.getSerializedSize(), 28U);
    EXPECT_EQ(serialized(sent, 28), TWO_COMPONENTS);
    EXPECT_EQ(serialized(sent, 27), "");

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
    for (const std::string& bytes : {
             TWO_COMPONENTS + "\0"s, word(UINT_MAX) + TWO_COMPONENTS.substr(4),
             word(1) + word(2) + word(4) + word(1),         // another kind
             word(1) + word(1) + word(5) + word(1),         // longer than what is there
             word(1) + word(1) + word(UINT_MAX) + word(1),  // the length wraps
             word(1) + word(1) + word(3) + "\0\0\1"s,       // no long
         }) {
        EXPECT_FALSE(take(packet, bytes)) << testing::PrintToString(bytes);
    }
    EXPECT_EQ(valueOf(packet.getCompInfo(0)), 7);
    EXPECT_EQ(packet.getCompInfo(1), nullptr);
}

TEST(Exception, RefusesBytesThatEndTooSoon) {
    const PException sent(1, 2, 3, 4, 5, 6, 0, 0, 0, 0, 0, 0, 0, "text");
    const std::string bytes = serialized(sent, sent.getSerializedSize());
    PException read;
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        EXPECT_EQ(take(read, bytes.substr(0, size)), size == bytes.size()) << size;
    }
    EXPECT_EQ(read.getArgument(7).getText(), "text");
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
