// Every component, with whatever a page puts in: what it accepts is what its rules allow, and
// nothing gets out of its place in what it prints.
#include <algorithm>

#include "Input.h"
#include "gui/MessageMgr.h"
#include "support/Captured.h"
#include "support/Components.h"

using namespace ORVLib::Gui;
using Fuzz::require;

namespace {

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

/// Checks what holds for every text field. True when its text was accepted.
bool isValid(const TextField& field, bool allowEmpty) {
    const auto size = static_cast<long>(field.getValue().size());
    require(field.isError() || (size == 0 ? allowEmpty : size <= field.getMaxLength()));
    require(printed(field).find(inQuotes(field.getValue())) != std::string::npos);
    return size != 0 && !field.isError();
}

/// Printing changes nothing.
template <typename... Components>
void print(const Components&... components) {
    (require(printed(components) == printed(components)), ...);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    const unsigned int flags = input.number();
    const bool a = (flags & 1) != 0;
    const bool b = (flags & 2) != 0;
    const bool c = (flags & 4) != 0;
    const int number = input.signedNumber();
    const int other = input.signedNumber();
    const int modes[] = {1, 2, 3};
    const unsigned int chosen = input.number() % 4;
    const int* const mode = chosen < 3 ? &modes[chosen] : nullptr;
    const std::string text = input.text();
    const std::string more = input.text();
    const std::string rest = input.text();

    isValid(TextField("t", text, "", 1, number, mode, false, b, a, c), a);
    isValid(InetAddressField("a", text, "", 1, number, mode, a), a);
    const bool isMail = isValid(EmailAddressField("m", text, "", 1, number, mode, a), a);
    require(!isMail || text.find('@') != std::string::npos);
    const bool isPort = isValid(PortNumberField("p", text, "", 1, number, mode, b, a, other), a);
    require(!isPort || isNumber(text, b ? 1 : 1024, other));
    require(printed(HiddenField("h", text)).find(inQuotes(text)) != std::string::npos);

    IPAddrMaskField mask("a", "", "", mode, a);
    b ? mask.setMaskBit(number) : mask.setMaskBit(text);
    mask.setAddress(other, more);
    mask.setAddress(number, other);
    require(mask.isError() || isNumber(mask.getMaskBit(), 1, 32));
    IPAddressField address("a", "", "", mode);
    address.setOnFocusFunction(more, rest);
    address.setAddress(0, text);
    require(address.isError() || isNumber(address.getAddress(0), 0, 255));
    DateField date("d", "", "", text, more, rest, mode);
    date.checkDate();
    require(date.isError() || std::atol(text.c_str()) >= 2000);
    TimeField time("t", "", "", text, more, rest, mode);
    time.checkTime();

    SelectMenu menu(text, "", "", number, mode, a);
    RadioButton radio(text, "", "", more, mode, a);
    CheckBox box(text, "", "", more, b, mode, a);
    for (const bool isChosen : {b, c}) {
        menu.add(text, rest, isChosen);
        radio.add(text, rest, isChosen ? more : "", isChosen, !isChosen);
        box.add(text, more, rest, more, isChosen, !isChosen);
    }
    menu.select(other);
    menu.setOnChangeFunction(more, rest);

    Image image(text, more, a, number);
    if (b) {
        image.setImageDispSize(more, rest);
    }
    image.zoomImageDispSize(flags >> 3, c);
    const std::string before = printed(image);
    const auto width = static_cast<unsigned int>(number);
    const auto height = static_cast<unsigned int>(other);
    if (image.resizeImageDispSize(width, height) && printed(image) != before) {
        std::string shown[2];
        image.getImageDispSize(shown[0], shown[1]);
        require(isNumber(shown[0], 0, width) && isNumber(shown[1], 0, height));
    }

    JsFunction script(text);
    script.addFunction(more, rest);
    script.addArray(more, {text, rest});
    script.addMessage(more, rest);
    script.addAlertFunction(rest);
    const HyperLink link(text, more, rest, more, b,
                         std::make_unique<TextString>(text, a, c, number));
    print(mask, address, date, time, menu, radio, box, script, link,
          Button(text, more, "", 0, rest, a), SubmitButton(text, more, "", 0, rest),
          ResetButton(text, more), FileField(text, more, "", rest, number, mode),
          SelectFile(text, more, "", number, mode), PasswordField("w", text, "", 1, number, mode),
          MetaTag(a ? "FRAME-ID" : text, more, rest));
    std::string escaped = text;
    MessageMgr::convertHTML(escaped);
    require(escaped.find_first_of("<>\" ") == std::string::npos);
    MessageMgr::encodeURL(escaped);
    require(escaped.find_first_of("# \x80\xff") == std::string::npos);
    return 0;
}
