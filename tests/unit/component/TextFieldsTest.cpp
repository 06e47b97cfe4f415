#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>

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

TEST(TextField, ChecksLengthCharactersAndEmptiness) {
    struct Case {
        std::string value;
        int maxLength;
        bool checkCharacters, allowEmpty, allowBlank;
        bool isError;
    };
    for (const Case& c :
         {Case{"12345678", 8, false, false, false, false},
          Case{"123456789", 8, false, true, true, true}, Case{"", 8, false, false, false, true},
          Case{"", 8, true, true, false, false}, Case{"", 0, false, true, false, false},
          Case{"", -1, false, true, false, true}, Case{"a", INT_MIN, false, true, false, true},
          Case{"!~", 8, true, false, false, false}, Case{"a b", 8, true, false, false, true},
          Case{"a b", 8, true, false, true, false}, Case{"a b", 8, false, false, false, false},
          Case{"\x1f", 8, true, false, true, true}, Case{"a\x7f", 8, true, false, true, true},
          Case{"a\x80", 8, true, false, true, true}, Case{"\xff", 8, true, false, true, true},
          Case{bytes("a\0"), 8, true, false, true, true},
          Case{"\xa4\xa2", 8, false, false, false, false}}) {
        EXPECT_EQ(TextField("n", c.value, "", 10, c.maxLength, nullptr, false, c.checkCharacters,
                            c.allowEmpty, c.allowBlank)
                      .isError(),
                  c.isError)
            << '"' << c.value << "\" " << c.maxLength;
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

/// Expects `field` to accept every one of `valid` and to refuse every one of `invalid`.
void expectChecks(TextField& field, std::initializer_list<const char*> valid,
                  std::initializer_list<const char*> invalid) {
    for (const char* const value : valid) {
        field.setValue(value);
        EXPECT_FALSE(field.isError()) << value;
    }
    for (const char* const value : invalid) {
        field.setValue(value);
        EXPECT_TRUE(field.isError()) << value;
    }
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
class AddressLikeField : public testing::Test {};
using AddressLikeFields = testing::Types<EmailAddressField, PortNumberField, InetAddressField>;
TYPED_TEST_SUITE(AddressLikeField, AddressLikeFields);

TYPED_TEST(AddressLikeField, HasItsOwnRuleForEmptyValuesAndPrintsAsATextField) {
    TypeParam field("n");
    TextField& asTextField = field;
    asTextField.setAllowEmpty(true);
    EXPECT_TRUE(field.isError());
    field.setAllowEmpty(true);
    asTextField.setAllowEmpty(false);
    EXPECT_FALSE(field.isError());
    EXPECT_EQ(printedWithFlushes(field),
              R"(<input type="text" size="20" maxlength="255" name="n" value="">)");
}

}  // namespace
