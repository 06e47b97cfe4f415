#include "orv/CsvInfoAccess.h"

#include <gtest/gtest.h>

#include <tuple>

#include "support/Files.h"

using ORVLib::ORVUi::CsvInfoAccess;

namespace {

CsvInfoAccess table(const std::string& text) {
    const std::string path = testing::TempDir() + "table.csv";
    writeFile(path, text);
    return CsvInfoAccess(path);
}

TEST(Csv, FindsTheFirstRecordOfAColumn) {
    const CsvInfoAccess csv = table("a,1,x\r\n\"q,\"\"uo\nted\",2\n\na,3\n,empty\nlast,\"4\"");
    using Case = std::tuple<int, const char*, const char*>;
    for (const auto& [column, key, expected] :
         {Case{0, "a", "a,1,x"}, Case{0, "q,\"uo\nted", "q,\"uo\nted,2"}, Case{1, "3", "a,3"},
          Case{0, "last", "last,4"}, Case{1, "empty", ",empty"}, Case{2, "x", "a,1,x"},
          Case{3, "x", nullptr}, Case{-1, "a", nullptr}, Case{0, "1", nullptr}}) {
        std::string record = "untouched";
        EXPECT_EQ(csv.searchRecord(column, key, record), expected != nullptr) << key;
        EXPECT_EQ(record, expected != nullptr ? expected : "untouched");
    }
}

TEST(Csv, DamageIsAFault) {
    for (const std::string& damaged : {bytes("a,\"open"), bytes("a,\"b\"c\n"), bytes("a\"b\n"),
                                       bytes("a\0b\n"), bytes("\"a\"\r")}) {
        const CsvInfoAccess csv = table("a,1\n" + damaged);
        std::string record;
        EXPECT_TRUE(csv.isFault()) << damaged;
        EXPECT_FALSE(csv.searchRecord(0, "a", record)) << damaged;
    }
    EXPECT_TRUE(CsvInfoAccess(testing::TempDir() + "absent.csv").isFault());
    EXPECT_TRUE(CsvInfoAccess(testing::TempDir()).isFault());
    EXPECT_FALSE(table("").isFault());
}

}  // namespace
