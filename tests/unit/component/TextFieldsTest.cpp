#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "component/Printing.h"
#include "gui/EmailAddressField.h"
#include "gui/InetAddressField.h"
#include "gui/PasswordField.h"
#include "gui/PortNumberField.h"
#include "gui/TextField.h"
#include "support/Files.h"

using namespace ORVLib::Gui;

namespace {

TEST(TextField, PrintsItsDisplayMode) {
    TextField field("n", R"("<&'")", "f", 10, 8);
    const std::string rest = R"( size="10" maxlength="8" name="n" value="&quot;<&'&quot;">)";
    expectPrinted(field, R"(<input type="text")" + rest,
                  R"(<input type="text" class="disabled" disabled)" + rest);
    EXPECT_EQ(field.getValue(), R"("<&'")");
}

/// Expects `field` to accept every one of `valid` and to refuse every one of `invalid`.
void expectChecks(TextField& field, const std::vector<std::string>& valid,
                  const std::vector<std::string>& invalid) {
    for (const std::string& value : valid) {
        field.setValue(value);
        EXPECT_FALSE(field.isError()) << value;
    }
    for (const std::string& value : invalid) {
        field.setValue(value);
        EXPECT_TRUE(field.isError()) << value;
    }
}

TEST(TextField, ChecksLengthCharactersAndEmptiness) {
    TextField field("n", "", "", 10, 8);
    expectChecks(field, {"12345678", "a b", "\xa4\xa2"}, {"", "123456789"});
    field.setCheckCharacters(true);
    expectChecks(field, {"!~"}, {"a b", "\x1f", "a\x7f", "a\x80", "\xff", bytes("a\0")});
    field.setAllowBlank(true);
    expectChecks(field, {"a b"}, {"\x1f"});
    field.setAllowEmpty(true);
    expectChecks(field, {""}, {});
    field.setMaxLength(0);
    expectChecks(field, {""}, {"a"});
    for (const int length : {-1, INT_MIN}) {
        field.setMaxLength(length);
        expectChecks(field, {}, {"", "a"});
    }
}

TEST(PasswordField, NeverPrintsItsValue) {
    const char* const box = R"(<input type="password" size="10" maxlength="8" name="n" value="">)";
    PasswordField field("n", "a\"\xa4", "f", 10, 8);
    expectPrinted(field, box, "***");
    field.setValue("");
    expectPrinted(field, box, "&nbsp;");
    field.setValue("123456789");
    EXPECT_FALSE(field.isError());
}

TEST(EmailAddressField, WantsAnAtSignAndNoDotAtTheEnds) {
    EmailAddressField field("n", "", "", 20, 10);
    expectChecks(field, {"a@b", "@", "a@@ b", "abcd@fghij"},
                 {"", "ab", ".a@b", "a@b.", ".", "abcd@fghijk"});
}

TEST(PortNumberField, ChecksTheRange) {
    PortNumberField field("n", "", "", 6, 20);
    expectChecks(field, {"1024", "65535", "0001024"},
                 {"", "0", "80", "1023", "65536", "4294968320", "18446744073709552640"});
    field.setAllowWellKnownPorts(true);
    expectChecks(field, {"1", "80", "1023", "1024"},
                 {"0", "+80", " 80", "80 ", "-80", "0x50", "8\xb2", "4294967376"});
    field.setMaximumPort(1999);
    expectChecks(field, {"1999"}, {"2000"});
    field.setMaximumPort(-1);
    expectChecks(field, {}, {"0", "1"});
    field.setMaximumPort(INT_MAX);
    expectChecks(field, {"99999999999999999999"}, {"100000000000000000000"});
}

TEST(InetAddressField, TellsHostNamesFromDottedNumbers) {
    InetAddressField field("n", "", "", 20, 16);
    expectChecks(field,
                 {"srv01.lan", "a b..c", "1.2.3.4.5.6.x", "abcdefghijklmnop", "192.168.1.1",
                  "255.255.255.255", "1.2.3..4", "1..2", "10.1", "10"},
                 {"", ".a", "a.", "abcdefghijklmnopq", "192.168.1.256", "256", "4294967297.1.1.1",
                  "1.2.3.4.5", "1.2.3.4..5", "1.2. 3.4", " ", ".1.2", "1.2.", "."});
}

template <class Field>
void expectRuleForEmptyValues(Field field) {
    static_cast<TextField&>(field).setAllowEmpty(true);
    EXPECT_TRUE(field.isError());
    field.setAllowEmpty(true);
    static_cast<TextField&>(field).setAllowEmpty(false);
    EXPECT_FALSE(field.isError());
}

TEST(AddressLikeFields, HaveTheirOwnRuleForEmptyValues) {
    expectRuleForEmptyValues(EmailAddressField("n"));
    expectRuleForEmptyValues(PortNumberField("n"));
    expectRuleForEmptyValues(InetAddressField("n"));
}

}  // namespace
