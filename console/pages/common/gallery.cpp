// Shows every component of the library in each display mode, valid and not, for page authors.

#include <iostream>
#include <vector>

#include "framework/component/AddedAttributes.h"
#include "framework/component/SkeletonPart.h"
#include "framework/input/Form.h"
#include "framework/page/PageMain.h"
#include "framework/page/Program.h"
#include "gui/Button.h"
#include "gui/CheckBox.h"
#include "gui/DateField.h"
#include "gui/DisplayMode.h"
#include "gui/EmailAddressField.h"
#include "gui/FileField.h"
#include "gui/HiddenField.h"
#include "gui/HyperLink.h"
#include "gui/IPAddrMaskField.h"
#include "gui/Image.h"
#include "gui/InetAddressField.h"
#include "gui/PasswordField.h"
#include "gui/PortNumberField.h"
#include "gui/RadioButton.h"
#include "gui/ResetButton.h"
#include "gui/SelectFile.h"
#include "gui/SelectMenu.h"
#include "gui/SubmitButton.h"
#include "gui/TextString.h"
#include "gui/TimeField.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int WIDTH = 14;      // of text inputs, in characters
constexpr int SHOWN_MODE = 1;  // read-only, carrying nothing

/// The place of a component in the table.
struct Place {
    std::string name;  // of the form field, unique in the table
    const int* displayMode;
    bool valid;
};

using Maker = Component (*)(const Place& place);

template <typename Field>
Component makeField(const Place& place, const char* good, const char* bad) {
    return std::make_unique<Field>(place.name, place.valid ? good : bad, FORM_NAME, WIDTH, 64,
                                   place.displayMode);
}

Component makeTextField(const Place& place) {
    auto field = std::make_unique<TextField>(place.name, place.valid ? "host-1" : "two \"words\"",
                                             FORM_NAME, WIDTH, 64, place.displayMode);
    field->setCheckCharacters(true);
    return field;
}

Component makePasswordField(const Place& place) {
    return std::make_unique<PasswordField>(place.name, "secret", FORM_NAME, WIDTH, 32,
                                           place.displayMode);
}

Component makeEmailAddressField(const Place& place) {
    return makeField<EmailAddressField>(place, "admin@example.org", "admin.example.org");
}

Component makePortNumberField(const Place& place) {
    return makeField<PortNumberField>(place, "8080", "80");
}

Component makeInetAddressField(const Place& place) {
    return makeField<InetAddressField>(place, "ntp.example.org", "192.0.2.256");
}

template <typename Field>
void setAddress(Field& field, bool valid) {
    const unsigned char address[] = {192, 0, 2, 10};
    field.setAddress(address);
    if (!valid) {
        field.setAddress(3, std::string("<10>"));
    }
}

Component makeIPAddressField(const Place& place) {
    auto field = std::make_unique<IPAddressField>(place.name, "", FORM_NAME, place.displayMode);
    setAddress(*field, place.valid);
    return field;
}

Component makeIPAddrMaskField(const Place& place) {
    auto field =
        std::make_unique<IPAddrMaskField>(place.name, "", FORM_NAME, place.displayMode, true);
    setAddress(*field, true);
    field->setMaskBit(place.valid ? 24 : 33);
    return field;
}

Component makeDateField(const Place& place) {
    auto field = std::make_unique<DateField>(place.name, "", FORM_NAME, "2028", "2",
                                             place.valid ? "29" : "30", place.displayMode);
    field->checkDate();
    return field;
}

Component makeTimeField(const Place& place) {
    auto field = std::make_unique<TimeField>(place.name, "", FORM_NAME, place.valid ? "23" : "24",
                                             "59", "00", place.displayMode);
    field->checkTime();
    return field;
}

Component makeSelectMenu(const Place& place) {
    auto menu = std::make_unique<SelectMenu>(place.name, "", FORM_NAME, 0, place.displayMode);
    menu->add("cd", "CD-ROM");
    menu->add("disk", "Disk", true);
    menu->add("net", "Network");
    return menu;
}

Component makeRadioButton(const Place& place) {
    auto group = std::make_unique<RadioButton>(place.name, "", FORM_NAME, "", place.displayMode);
    group->add("on", "On", place.name + "_on", true, false);
    group->add("off", "Off", place.name + "_off", false, false);
    return group;
}

Component makeCheckBox(const Place& place) {
    auto group =
        std::make_unique<CheckBox>(place.name, "", FORM_NAME, "", false, place.displayMode);
    group->add(place.name + "_mail", "1", "Mail", place.name + "_mail", true);
    group->add(place.name + "_trap", "1", "Trap", place.name + "_trap");
    group->add(place.name + "_none", "1", "Never", place.name + "_none", false, true);
    return group;
}

Component makeFileField(const Place& place) {
    return std::make_unique<FileField>(place.name, "firmware.bin", FORM_NAME, "Browse...", WIDTH,
                                       place.displayMode);
}

Component makeSelectFile(const Place& place) {
    return std::make_unique<SelectFile>(place.name, "", FORM_NAME, 20, place.displayMode);
}

Component makeImage(const Place& /*place*/) {
    auto image = std::make_unique<Image>("/images/fan_64x64.gif", "Fan");
    image->resizeImageDispSize(32, 32);
    return image;
}

Component makeButton(const Place& place) {
    const bool editable = place.displayMode == nullptr || *place.displayMode == EDIT_MODE;
    return std::make_unique<Button>(place.name, "Button", FORM_NAME, 0,
                                    "\"alert('" + place.name + "')\"", !editable);
}

Component makeSubmitButton(const Place& place) {
    return std::make_unique<SubmitButton>(place.name, "Submit", FORM_NAME);
}

Component makeResetButton(const Place& place) {
    return std::make_unique<ResetButton>(place.name, "Reset", FORM_NAME);
}

Component makeHiddenField(const Place& place) {
    return std::make_unique<HiddenField>(place.name, "not \"seen\"", FORM_NAME);
}

Component makeTextString(const Place& place) {
    return std::make_unique<TextString>(
        "<text> & colour", false, false,
        place.valid ? TextString::NORMAL_COLOUR : TextString::ERROR_COLOUR);
}

Component makeHyperLink(const Place& place) {
    return std::make_unique<HyperLink>("/common/request.cgi?text=" + place.name, "_blank", "", "",
                                       false, std::make_unique<TextString>("Request inspector"));
}

struct Exhibit {
    const char* className;
    Maker make;
    bool validates;  // has an invalid form to show
};

constexpr Exhibit EXHIBITS[] = {
    {"TextField", makeTextField, true},
    {"PasswordField", makePasswordField, false},
    {"EmailAddressField", makeEmailAddressField, true},
    {"PortNumberField", makePortNumberField, true},
    {"InetAddressField", makeInetAddressField, true},
    {"IPAddressField", makeIPAddressField, true},
    {"IPAddrMaskField", makeIPAddrMaskField, true},
    {"DateField", makeDateField, true},
    {"TimeField", makeTimeField, true},
    {"SelectMenu", makeSelectMenu, false},
    {"RadioButton", makeRadioButton, false},
    {"CheckBox", makeCheckBox, false},
    {"FileField", makeFileField, false},
    {"SelectFile", makeSelectFile, false},
    {"Image", makeImage, false},
    {"Button", makeButton, false},
    {"SubmitButton", makeSubmitButton, false},
    {"ResetButton", makeResetButton, false},
    {"HiddenField", makeHiddenField, false},
    {"TextString", makeTextString, true},
    {"HyperLink", makeHyperLink, false},
};

constexpr int EDIT = EDIT_MODE;
constexpr int CONFIRM = CONFIRM_MODE;
constexpr int SHOWN = SHOWN_MODE;

struct Column {
    const char* suffix;
    Text head;
    const int* displayMode;
};

constexpr Column COLUMNS[] = {
    {"none", TEXT_MODE_NONE, nullptr},
    {"edit", TEXT_MODE_EDIT, &EDIT},
    {"confirm", TEXT_MODE_CONFIRM, &CONFIRM},
    {"shown", TEXT_MODE_SHOWN, &SHOWN},
};

/// The table: a row for each component, valid and invalid, a column for each display mode.
class GalleryTable : public HTMLComponent {
public:
    void printHTML() const override {
        std::cout << "<table class=\"gallery\">\n<tr><td></td>";
        for (const Column& column : COLUMNS) {
            std::cout << "<th scope=\"col\">";
            TextString(text(column.head)).printHTML();
            std::cout << "</th>";
        }
        std::cout << "</tr>\n";
        for (const Exhibit& exhibit : EXHIBITS) {
            printRow(exhibit, true);
            if (exhibit.validates) {
                printRow(exhibit, false);
            }
        }
        std::cout << "</table>";
    }

    bool isError() const override { return false; }

private:
    static void printRow(const Exhibit& exhibit, bool valid) {
        std::cout << "<tr><th scope=\"row\">" << exhibit.className;
        if (!valid) {
            std::cout << "<br>";
            TextString(text(TEXT_INVALID), false, false, TextString::ERROR_COLOUR).printHTML();
        }
        std::cout << "</th>";
        for (const Column& column : COLUMNS) {
            const std::string name =
                std::string(exhibit.className) + "_" + column.suffix + (valid ? "" : "_invalid");
            const Component component = exhibit.make({name, column.displayMode, valid});
            std::cout << (component->isError() ? "<td class=\"wrong\">" : "<td>");
            printWithAttributes([&component] { component->printHTML(); },
                                [&name](std::size_t) { return attribute("title", name); });
            std::cout << "</td>";
        }
        std::cout << "</tr>\n";
    }
};

class GalleryMain : public PageMain {
public:
    explicit GalleryMain(FormInfo& form) : PageMain(form, Module::GALLERY) {}

protected:
    int execMain() override {
        chooseLanguage();
        beginPage(TEXT_GALLERY);
        auto body = std::make_unique<SkeletonPart>("skeleton_gallery.txt");
        body->putText("title", text(TEXT_GALLERY));
        body->putSentence("purpose", text(TEXT_GALLERY_PURPOSE));
        body->put("table", std::make_unique<GalleryTable>());
        printPage(std::move(body));
        return 0;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::GalleryMain>();
}
