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
#include "gui/MenuData.h"
#include "gui/ORVGUIUtil.h"
#include "gui/OutlineFramePage.h"
#include "gui/TimeoutPage.h"
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
using Map = std::map<string, HTMLComponent*>;
using Maintenance = ORVUi::PrimitiveTypeWrapper<ORVUi::ORV_MAINTENANCE_MODE>;
using Object = SerializableObject;
using Byte = unsigned char;
using Number = unsigned int;
using Text = const string&;

struct Main : AbstractMain {
    Main() : AbstractMain(nullptr, 1) {}
    int execMain() override { return 7; }
    using AbstractMain::getCookie;
    using AbstractMain::guiCheckLogin;
    using AbstractMain::guiCheckSession;
    using AbstractMain::setAutoRefresh;
};

/// Whether classes have operations of exactly the type `Type`; one that has drifted from it does
/// not compile.
template <typename Type, class... Class>
constexpr bool is(Type Class::*... rows) {
    return sizeof...(rows) > 0;
}
template <typename Type>
constexpr bool is(Type* /*operation*/) {
    return true;
}

/// Whether classes have values of exactly the type `Type`.
template <typename Type, typename... Value>
constexpr bool are(Value*... /*value*/) {
    return (std::is_same_v<Type, Value> && ...);
}

static_assert(is<bool() const>(&FormInfo::isPostMethod, &CGIAuthority::isSystemAdmin,
                               &CGIAuthority::isTechnicalStaff, &CGIAuthority::isGuest,
                               &CGIAuthority::isOperator, &CGIAuthority::isSomePartitionAdmin,
                               &HTMLCodeGenerator::isError, &HTMLComponent::isError));
static_assert(is<bool(Text, string&) const>(&FormInfo::getFormData));
static_assert(is<bool(Text, Byte*) const>(&FormInfo::getFormIPAddr));
static_assert(is<string()>(&FormInfo::getQueryString));
static_assert(is<string(CGIRequester&)>(&FormInfo::getURLInfo));
static_assert(is<bool()>(&FormInfo::isReadSkip));
static_assert(is<void()>(&FormInfo::readSkipData, &FormInfo::terminate,
                         &CGIAuthority::setConfigAuthority, &CGIAuthority::setAllAuthority,
                         &Main::getCookie, &CommonDefaultPage::makeDispPage,
                         &CommonDefaultPage::makeConfigPage, &CommonDefaultPage::makePage,
                         &DateField::checkDate, &TimeField::checkTime,
                         &OutlineFramePage::createPage));
static_assert(are<FormInfo*>(&FormInfo::myInstance));
static_assert(is<void(const char*)>(&CGIRequester::setSessionId));
static_assert(is<string() const>(&CGIRequester::getSessionId));
static_assert(is<Number(int&)>(&CGIRequester::getLanguage));
static_assert(is<Number(Text, Text, Text, int&, string&)>(&CGIRequester::login));
static_assert(is<Number()>(&CGIRequester::logout));
static_assert(is<Number(int&, Number&, CGIAuthority*, bool)>(&CGIRequester::checkSession));
static_assert(is<Number(int&, CGIAuthority&, void*)>(&CGIRequester::getUserInfo));
static_assert(is<int(Number, void*)>(&CGIRequester::getInfo));
static_assert(is<int(Number, Object&)>(&CGIRequester::getInfo));
static_assert(is<int(Number, Object&, Object&)>(&CGIRequester::getInfo,
                                                &CGIRequester::callTransaction));
static_assert(is<Number(Number, Object&)>(&CGIRequester::setInfo));
static_assert(is<Number(Number, Number, const void*)>(&CGIRequester::setInfo));
static_assert(is<void(const Byte*, int)>(&CGIRequester::debugTrace));
static_assert(is<void(const CGI_AUTHORITY&)>(&CGIAuthority::setAuthority));
static_assert(is<void(CGI_AUTHORITY&) const>(&CGIAuthority::getAuthority));
static_assert(is<bool(int) const>(&CGIAuthority::isPartitionAdmin));
static_assert(is<void(int)>(&CGIAuthority::setPartitionAdmin, &SelectMenu::select));
static_assert(is<int() const>(&JudgeAuthority::getDisplayMode));
static_assert(is<int(CGIRequester&) const>(&JudgeAuthority::preCheckDisplayMode));
static_assert(is<Number(Byte*, Number) const>(&Maintenance::getSerialized));
static_assert(is<Number() const>(&Maintenance::getSerializedSize));
static_assert(is<bool(const Byte*, Number)>(&Maintenance::setSerialized));
static_assert(is<int()>(&AbstractMain::exec, &Main::execMain));
static_assert(is<void(bool)>(&Main::guiCheckSession));
static_assert(is<int(int&, bool*, bool)>(&Main::guiCheckLogin));
static_assert(is<void(HTMLPage&)>(&Main::setAutoRefresh));
static_assert(is<void(string, int)>(&AbstractMain::errorExit));
static_assert(is<void(string, int, Byte)>(&AbstractMain::errorExit));
static_assert(is<void(string, string)>(
    &AbstractMain::errorExit, &IPAddressField::setOnFocusFunction, &DateField::setOnFocusFunction,
    &SelectMenu::setOnChangeFunction, &SelectMenu::setOnClickFunction));
static_assert(are<const char*>(&HTMLPage::SKELETON_FILE_NAME, &HTMLPage::SKELETON_ERR_FILE_NAME));
static_assert(are<const string>(&HTMLPage::FORM_PAGE_STATE, &HTMLPage::KEY_JAVA_SCRIPT,
                                &HTMLPage::KEY_BODY, &HTMLPage::KEY_COOKIE));
static_assert(is<bool(Map&, Text, HTMLComponent*)>(&HTMLMapUtil::insertIntoMap));
static_assert(is<void() const>(&HTMLCodeGenerator::printHTML, &HTMLComponent::printHTML));
static_assert(is<int(int, bool)>(&CommonDefaultPage::getNextPageState));
static_assert(is<void(int*, bool), CommonDefaultPage>(&CommonDefaultPage::addNextPageItem));
static_assert(is<void(Text, Text, int)>(&CommonDefaultPage::setComplPageItemToMap));
static_assert(is<string(int)>(&MessageMgr::getString) && is<string(int)>(&ORVGUIUtil::getCGIPath));
static_assert(is<string(int, int, ...)>(&MessageMgr::getMessage));
static_assert(is<bool(ORVUi::CsvInfoAccess&, Number, Number&)>(&MessageMgr::getCsvExMsgId));
static_assert(is<void(string&)>(&MessageMgr::encodeURL) &&
              is<void(string&)>(&MessageMgr::convertHTML));
static_assert(is<void(string&, Text, Text)>(&MessageMgr::convertStr));
static_assert(are<const char[6][16]>(&TextString::colorStyle));
static_assert(is<HTMLComponent*() const>(&HyperLink::getContent));
static_assert(is<void(HTMLComponent*)>(&HyperLink::setContent));
static_assert(is<void(int, int), IPAddressField>(&IPAddressField::setAddress));
static_assert(is<void(int, string), IPAddressField>(&IPAddressField::setAddress));
static_assert(is<void(Byte*), IPAddressField>(&IPAddressField::setAddress));
static_assert(is<void(const int&)>(&IPAddrMaskField::setMaskBit));
static_assert(is<void(string)>(&IPAddrMaskField::setMaskBit, &JsFunction::addAlertFunction));
static_assert(is<void(Text, Text, bool)>(&SelectMenu::add));
static_assert(is<void(Text, Text, Text, bool, bool)>(&RadioButton::add));
static_assert(is<void(Text, Text, bool, bool)>(&RadioButton::add));
static_assert(is<void(Text, Text, Text, Text, bool, bool)>(&CheckBox::add));
static_assert(is<void(Text, Text)>(&Image::setImageDispSize, &JsFunction::addFunction,
                                   &JsFunction::addMessage));
static_assert(is<void(string&, string&) const>(&Image::getImageDispSize));
static_assert(is<bool(Number, Number)>(&Image::resizeImageDispSize));
static_assert(is<bool(Number, bool)>(&Image::zoomImageDispSize));
static_assert(is<void(Text)>(&JsFunction::addFunction));
static_assert(is<void(Text, const std::vector<string>&)>(&JsFunction::addArray));
static_assert(is<const char*(int, int, char*)>(&MenuData::getTopMenuName));
static_assert(is<string(int, int)>(&MenuData::getTopMenuFullName));
static_assert(is<void(int, int)>(&OutlineFramePage::makeMenuPath));
static_assert(is<void(string, string, string)>(&OutlineFramePage::makeInfoPath));

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
