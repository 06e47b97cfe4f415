// Every component, with whatever a page puts in: what it accepts is what its rules allow, and
// nothing gets out of its place in what it prints.
#include <algorithm>

#include "gui/Button.h"
#include "gui/CheckBox.h"
#include "gui/DateField.h"
#include "gui/EmailAddressField.h"
#include "gui/FileField.h"
#include "gui/HiddenField.h"
#include "gui/HyperLink.h"
#include "gui/IPAddrMaskField.h"
#include "gui/Image.h"
#include "gui/InetAddressField.h"
#include "gui/JsFunction.h"
#include "gui/MessageMgr.h"
#include "gui/MetaTag.h"
#include "gui/PasswordField.h"
#include "gui/PortNumberField.h"
#include "gui/RadioButton.h"
#include "gui/ResetButton.h"
#include "gui/SelectFile.h"
#include "gui/SelectMenu.h"
#include "gui/SubmitButton.h"
#include "gui/TextString.h"
#include "gui/TimeField.h"
#include "support/Captured.h"
#include "support/Input.h"

using namespace ORVLib::Gui;
using Fuzz::require;

namespace {

/// What a page program puts into its components.
struct Values {
    explicit Values(Fuzz::Input& input)
        : flags(input.number()),
          number(input.signedNumber()),
          other(input.signedNumber()),
          mode(static_cast<int>(input.number() % 4)),
          text(input.text()),
          more(input.text()),
          rest(input.text()) {}

    bool flag(unsigned int bit) const { return (flags >> bit & 1) != 0; }
    const int* getMode() const { return mode != 0 ? &mode : nullptr; }

    unsigned int flags;
    int number;
    int other;
    int mode;
    std::string text;
    std::string more;
    std::string rest;
};

bool isNumber(const std::string& text, long lowest, long highest) {
    const long number = std::min(std::atol(text.c_str()), long{INT32_MAX});  // as the board reads
    return text.find_first_not_of("0123456789") == std::string::npos && number >= lowest &&
           number <= highest;
}

std::string inQuotes(std::string text) {
    MessageMgr::convertStr(text, "\"", "&quot;");
    require(text.find('"') == std::string::npos);
    return " value=\"" + text + "\">";
}

bool isFit(const TextField& field, bool allowEmpty) {
    const auto size = static_cast<long>(field.getValue().size());
    require(field.isError() || (size == 0 ? allowEmpty : size <= field.getMaxLength()));
    require(printed(field).find(inQuotes(field.getValue())) != std::string::npos);
    return size != 0 && !field.isError();
}

void checkTextFields(const Values& v) {
    const std::string& value = v.text;
    const bool empty = v.flag(0);
    isFit(TextField("t", value, "", 1, v.number, v.getMode(), false, v.flag(1), empty, v.flag(2)),
          empty);
    isFit(InetAddressField("a", value, "", 1, v.number, v.getMode(), empty), empty);
    if (isFit(EmailAddressField("m", value, "", 1, v.number, v.getMode(), empty), empty)) {
        require(value.find('@') != std::string::npos);
    }
    if (isFit(PortNumberField("p", value, "", 1, v.number, v.getMode(), v.flag(1), empty, v.other),
              empty)) {
        require(isNumber(value, v.flag(1) ? 1 : 1024, v.other));
    }
    printed(PasswordField("w", value, "", 1, v.number, v.getMode()));
    const std::string hidden = printed(HiddenField("h", value));
    require(hidden.find(inQuotes(value)) != std::string::npos);
}

void checkBoxes(const Values& v) {
    IPAddrMaskField mask("a", "", "", v.getMode(), v.flag(0));
    v.flag(1) ? mask.setMaskBit(v.number) : mask.setMaskBit(v.text);
    mask.setAddress(v.other, v.more);
    mask.setAddress(v.number, v.other);
    require(mask.isError() || isNumber(mask.getMaskBit(), 1, 32));
    printed(mask);
    IPAddressField address("a", "", "", v.getMode());
    address.setOnFocusFunction(v.more, v.rest);
    address.setAddress(0, v.text);
    require(address.isError() || isNumber(address.getAddress(0), 0, 255));
    printed(address);
    DateField date("d", "", "", v.text, v.more, v.rest, v.getMode());
    date.setOnFocusFunction(v.rest, "");
    date.checkDate();
    require(date.isError() || std::atol(v.text.c_str()) >= 2000);
    printed(date);
    TimeField time("t", "", "", v.text, v.more, v.rest, v.getMode());
    time.checkTime();
    printed(time);
}

void checkChoices(const Values& v) {
    SelectMenu menu(v.text, "", "", v.number, v.getMode(), v.flag(0));
    RadioButton radio(v.text, "", "", v.more, v.getMode(), v.flag(0));
    CheckBox box(v.text, "", "", v.more, v.flag(1), v.getMode(), v.flag(0));
    for (const bool chosen : {v.flag(2), v.flag(3)}) {
        menu.add(v.text, v.rest, chosen);
        radio.add(v.text, v.rest, chosen ? v.more : "", chosen, v.flag(4));
        box.add(v.text, v.more, v.rest, v.more, chosen, v.flag(4));
        printed(menu);
        printed(radio);
        printed(box);
    }
    menu.setOnChangeFunction(v.more, v.rest);
    menu.setOnClickFunction(v.more, v.rest);
    menu.select(v.other);
    printed(menu);
}

void checkImage(const Values& v) {
    const auto width = static_cast<unsigned int>(v.number);
    const auto height = static_cast<unsigned int>(v.other);
    Image image(v.text, v.more, v.flag(0), v.number);
    image.setOnClick(v.rest);
    if (v.flag(1)) {
        image.setImageDispSize(v.more, v.rest);
    }
    image.zoomImageDispSize(height >> 24, v.flag(2));
    const std::string before = printed(image);
    const bool isResized = image.resizeImageDispSize(width, height) && printed(image) != before;
    std::string shownWidth;
    std::string shownHeight;
    image.getImageDispSize(shownWidth, shownHeight);
    require(!isResized || (isNumber(shownWidth, 0, width) && isNumber(shownHeight, 0, height)));
}

void checkOthers(const Values& v) {
    auto text = std::make_unique<TextString>(v.text, false, v.flag(0), v.number);
    printed(HyperLink(v.text, v.more, v.rest, v.more, v.flag(1), std::move(text)));
    printed(Button(v.text, v.more, "", 0, v.rest, v.flag(0)));
    printed(SubmitButton(v.text, v.more, "", 0, v.rest));
    printed(ResetButton(v.text, v.more));
    printed(FileField(v.text, v.more, "", v.rest, v.number, v.getMode()));
    printed(SelectFile(v.text, v.more, "", v.number, v.getMode()));
    printed(MetaTag(v.flag(0) ? "FRAME-ID" : v.text, v.more, v.rest));
    JsFunction script(v.text);
    script.addFunction(v.more);
    script.addFunction(v.more, v.rest);
    script.addArray(v.more, {v.text, v.rest});
    script.addMessage(v.more, v.rest);
    script.addAlertFunction(v.rest);
    printed(script);
    std::string escaped = v.text;
    MessageMgr::convertHTML(escaped);
    require(escaped.find_first_of("<>\" ") == std::string::npos);
    MessageMgr::encodeURL(escaped);
    require(escaped.find_first_of("# \x80\xff") == std::string::npos);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    const Values values(input);
    checkTextFields(values);
    checkBoxes(values);
    checkChoices(values);
    checkImage(values);
    checkOthers(values);
    return 0;
}
