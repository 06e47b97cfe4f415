// What holds for the public interface as a whole.

#include <gtest/gtest.h>

#include <climits>
#include <iomanip>

#include "gui/AbstractMain.h"
#include "gui/CGIRequester.h"
#include "gui/Cookie.h"
#include "gui/FormInfo.h"
#include "gui/JudgeAuthority.h"
#include "gui/MaintenanceMode.h"
#include "orv/PException.h"
#include "support/Captured.h"
#include "support/CgiRequest.h"
#include "support/Components.h"

using namespace ORVLib;
using namespace ORVLib::Gui;
using std::string;

namespace {

using Address = IPAddressField;
using Masked = IPAddrMaskField;
using Maintenance = ORVUi::PrimitiveTypeWrapper<ORVUi::ORV_MAINTENANCE_MODE>;
using Byte = unsigned char;

struct Main : AbstractMain {
    Main() : AbstractMain(nullptr, 1) {}
    int execMain() override { return 7; }
};

// The operations that the library exports are in tests/install/symbols.txt with their types.

/// Whether classes have values of exactly the type `Type`.
template <typename Type, typename... Value>
constexpr bool are(Value*... /*value*/) {
    return (std::is_same_v<Type, Value> && ...);
}

static_assert(are<FormInfo*>(&FormInfo::myInstance));
static_assert(are<const char*>(&HTMLPage::SKELETON_FILE_NAME, &HTMLPage::SKELETON_ERR_FILE_NAME));
static_assert(are<const string>(&HTMLPage::FORM_PAGE_STATE, &HTMLPage::KEY_JAVA_SCRIPT,
                                &HTMLPage::KEY_BODY, &HTMLPage::KEY_COOKIE));
static_assert(are<const char[6][16]>(&TextString::colorStyle));

static_assert(FormInfo::checkStringForm == "Content-Disposition: form-data; name=\"");
static_assert(FormInfo::checkStringFile == "filename=\"");
static_assert(FormInfo::checkStringType == "multipart/form-data; boundary=");
static_assert(TextField::START_ASCII_HALF_ALPHANUM == 33);
static_assert(TextField::END_ASCII_HALF_ALPHANUM == 126);
static_assert(TextField::BLANK_ASCII_HALF_ALPHANUM == 32);
static_assert(Address::ADDR_BYTE_SIZE == 4 && Address::SIZE == 4 && Address::MAX_LENGTH == 3);
static_assert(Masked::IP_SIZE == 4 && Masked::IP_MAX_LENGTH == 3 && Masked::MASK_SIZE == 3);
static_assert(Masked::MASK_MAX_LENGTH == 2);
static_assert(Masked::MASK_VALUE_MIN == 1 && Masked::MASK_VALUE_MAX == 32);

TEST(Interface, TakesWhatPagesPass) {
    static constexpr Byte CONSTANT[] = {1, 2, 3, 4};
    Byte bytes[] = {5, 6, 7, 8};
    IPAddressField field("n");
    field.setAddress(nullptr);
    EXPECT_EQ(field.getAddress(0), "");
    field.setAddress(bytes);
    EXPECT_EQ(field.getAddress(3), "8");
    field.setAddress(&CONSTANT[0]);
    field.setAddress(CONSTANT);
    EXPECT_EQ(field.getAddress(3), "4");

    RadioButton group("n");
    group.add("v", "L", 0, 0);
    EXPECT_EQ(printed(group), R"(<input type="radio" name="n" value="v">L)");

    auto* const shown = new TextString("x");
    HyperLink link("u", "t", "", "", false, shown);
    link.setContent(link.getContent());
    EXPECT_EQ(link.getContent(), shown);
    link.setContent(nullptr);
    EXPECT_EQ(link.getContent(), nullptr);
    EXPECT_EQ(HyperLink("u", "t", "", "", false, nullptr).getContent(), nullptr);
}

TEST(Interface, TakesNullForEveryPointer) {
    EXPECT_EQ(Main().exec(), 7);
    CGIRequester requester(nullptr);
    EXPECT_EQ(requester.getSessionId(), "");
    requester.debugTrace(nullptr, 4);
    EXPECT_EQ(JudgeAuthority(nullptr, 4).getDisplayMode(), 0);
    EXPECT_EQ(JudgeAuthority(nullptr, 10).preCheckDisplayMode(requester),
              JudgeAuthority::UNDECIDED);
    CgiRequest request;
    request.get("a0=1&a1=2&a2=3&a3=4");
    EXPECT_FALSE(FormInfo().getFormIPAddr("a", nullptr));
    Maintenance mode;
    EXPECT_FALSE(mode.setSerialized(nullptr, 1));
    EXPECT_THROW(mode.getSerialized(nullptr, mode.getSerializedSize()), PException);
}

void expectSamePrint(const HTMLComponent& component) {
    const string plain = printed(component);
    std::ios before(nullptr);
    before.copyfmt(std::cout);
    std::cout.imbue(std::locale(std::locale(), new Grouping));
    std::cout << std::hex << std::showpos << std::left << std::setfill('*') << std::setw(900);
    const auto flags = std::cout.flags();
    EXPECT_EQ(printed(component), plain);
    EXPECT_EQ(std::cout.flags(), flags);
    EXPECT_EQ(std::cout.width(), 900);
    std::cout.copyfmt(before);
}

TEST(Interface, PrintsTheSameWhateverThePageDidToTheStream) {
    SelectMenu menu("n");
    menu.add("v", "L");
    IPAddrMaskField masked("n");
    masked.setMaskBit(32);
    const auto expect = [](const auto&... component) { (expectSamePrint(component), ...); };
    expect(menu, masked, Button("n"), Cookie(), DateField("n"), FileField("n", "v", "", "B", 1000),
           Frame("n"), HiddenField("n"), HyperLink("u"), Image("a_12x34.gif", "", true, 1000),
           IPAddressField("n"), JsFunction("f()"), MetaTag("n"), ResetButton("n"),
           PasswordField("n", "v", "", 1000, INT_MIN), SelectFile("n", "v", "", 1000),
           SubmitButton("n"), TextField("n", "v", "", 1000, INT_MAX),
           TextString("x", false, false, 1), TimeField("n"));
}

}  // namespace
