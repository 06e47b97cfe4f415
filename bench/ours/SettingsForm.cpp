#include "ours/SettingsForm.h"

#include "gui/CheckBox.h"
#include "gui/DateField.h"
#include "gui/EmailAddressField.h"
#include "gui/HiddenField.h"
#include "gui/IPAddrMaskField.h"
#include "gui/IPAddressField.h"
#include "gui/Image.h"
#include "gui/InetAddressField.h"
#include "gui/MetaTag.h"
#include "gui/PasswordField.h"
#include "gui/PortNumberField.h"
#include "gui/RadioButton.h"
#include "gui/ResetButton.h"
#include "gui/SelectMenu.h"
#include "gui/SubmitButton.h"
#include "gui/TextField.h"
#include "gui/TextString.h"
#include "gui/TimeField.h"

using namespace ORVLib::Gui;

namespace Bench {

namespace {

constexpr char FORM[] = "form_name";

template <typename Component, typename... Arguments>
Component& put(HTMLPage& page, const std::string& marker, Arguments&&... arguments) {
    auto component = std::make_unique<Component>(std::forward<Arguments>(arguments)...);
    Component& result = *component;
    HTMLMapUtil::insertIntoMap(page.getMap(), marker, std::move(component));
    return result;
}

void putTextInputs(HTMLPage& page) {
    put<TextField>(page, "host", "host", "host-1", FORM, 20, 63);
    put<TextField>(page, "location", "location", "Room \"4\"", FORM, 30, 63);
    put<TextField>(page, "contact", "contact", "Duty desk", FORM, 30, 63);
    put<PasswordField>(page, "password", "password", "", FORM, 14, 32);
    put<PasswordField>(page, "again", "again", "", FORM, 14, 32);
    put<EmailAddressField>(page, "mail", "mail", "admin@example.org", FORM, 30, 63);
    put<PortNumberField>(page, "port", "port", "8080", FORM, 6, 5);
    put<InetAddressField>(page, "ntp", "ntp", "ntp.example.org", FORM, 30, 63);
}

void putNumberInputs(HTMLPage& page) {
    const unsigned char address[] = {192, 0, 2, 10};
    put<IPAddressField>(page, "gateway", "gateway", "", FORM).setAddress(address);
    IPAddrMaskField& network = put<IPAddrMaskField>(page, "network", "network", "", FORM);
    network.setAddress(address);
    network.setMaskBit(24);
    put<DateField>(page, "date", "date", "", FORM, "2028", "2", "29");
    put<TimeField>(page, "time", "time", "", FORM, "23", "59", "00");
}

void putChoices(HTMLPage& page) {
    SelectMenu& boot = put<SelectMenu>(page, "boot", "boot", "", FORM);
    boot.add("cd", "CD-ROM");
    boot.add("disk", "Disk", true);
    boot.add("net", "Network");
    RadioButton& led = put<RadioButton>(page, "led", "led", "", FORM);
    led.add("off", "Off", "led_off", true, false);
    led.add("on", "On", "led_on", false, false);
    CheckBox& notify = put<CheckBox>(page, "notify", "notify", "", FORM);
    notify.add("mail_on", "1", "Mail", "mail_on", true);
    notify.add("trap_on", "1", "Trap", "trap_on");
    put<HiddenField>(page, "page_state", "page_state", "3", FORM);
    put<SubmitButton>(page, "submit", "submit", "Set", FORM);
    put<ResetButton>(page, "reset", "reset", "Reset", FORM);
}

}  // namespace

void fillPage(HTMLPage& page, LabelSource label, void* context) {
    page.getGenerator().setSkeletonFileName(BENCH_SKELETON);
    put<TextString>(page, "title", "Settings");
    put<TextString>(page, "css", "/default.css");
    put<MetaTag>(page, "meta_frameid", "FRAME-ID", "M-BENCH-0-00");
    put<Image>(page, "picture", "/images/fan_64x64.gif", "Fan");
    for (int i = 0; i < LABEL_COUNT; ++i) {
        put<TextString>(page, "label" + std::to_string(i), label(i, context));
    }
    putTextInputs(page);
    putNumberInputs(page);
    putChoices(page);
}

}  // namespace Bench
