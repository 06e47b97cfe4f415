// Every component of the library, once in each display mode, valid and not: a catalogue for page
// authors.

#include <iostream>
#include <vector>

#include "catalogue/Texts.h"
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

constexpr int MODULE = 0x904;
constexpr int WIDTH = 14;      // of text inputs, in characters
constexpr int SHOWN_MODE = 1;  // read-only, carrying nothing

/// What a component is made for: its place in the table.
struct Place {
    std::string name;  // of the form field, another one in each cell
    const int* displayMode;
    bool valid;
};

using Made = std::unique_ptr<HTMLComponent>;
using Maker = Made (*)(const Place& place);

template <typename Field>
Made makeText(const Place& place, const char* good, const char* bad) {
    return std::make_unique<Field>(place.name, place.valid ? good : bad, FORM_NAME, WIDTH, 64,
                                   place.displayMode);
}

Made makeTextField(const Place& place) {
    auto field = std::make_unique<TextField>(place.name, place.valid ? "host-1" : "two \"words\"",
                                             FORM_NAME, WIDTH, 64, place.displayMode);
    field->setCheckCharacters(true);
    return field;
}

Made makePasswordField(const Place& place) {
    return std::make_unique<PasswordField>(place.name, "secret", FORM_NAME, WIDTH, 32,
                                           place.displayMode);
}

Made makeEmailAddressField(const Place& place) {
    return makeText<EmailAddressField>(place, "admin@example.org", "admin.example.org");
}

Made makePortNumberField(const Place& place) {
    return makeText<PortNumberField>(place, "8080", "80");
}

Made makeInetAddressField(const Place& place) {
    return makeText<InetAddressField>(place, "ntp.example.org", "192.0.2.256");
}

template <typename Field>
void setAddress(Field& field, bool valid) {
    const unsigned char address[] = {192, 0, 2, 10};
    field.setAddress(address);
    if (!valid) {
        field.setAddress(3, std::string("<10>"));
    }
}

Made makeIPAddressField(const Place& place) {
    auto field = std::make_unique<IPAddressField>(place.name, "", FORM_NAME, place.displayMode);
    setAddress(*field, place.valid);
    return field;
}

Made makeIPAddrMaskField(const Place& place) {
    auto field =
        std::make_unique<IPAddrMaskField>(place.name, "", FORM_NAME, place.displayMode, true);
    setAddress(*field, true);
    field->setMaskBit(place.valid ? 24 : 33);
    return field;
}

Made makeDateField(const Place& place) {
    auto field = std::make_unique<DateField>(place.name, "", FORM_NAME, "2028", "2",
                                             place.valid ? "29" : "30", place.displayMode);
    field->checkDate();
    return field;
}

Made makeTimeField(const Place& place) {
    auto field = std::make_unique<TimeField>(place.name, "", FORM_NAME, place.valid ? "23" : "24",
                                             "59", "00", place.displayMode);
    field->checkTime();
    return field;
}

Made makeSelectMenu(const Place& place) {
    auto menu = std::make_unique<SelectMenu>(place.name, "", FORM_NAME, 0, place.displayMode);
    menu->add("cd", "CD-ROM");
    menu->add("disk", "Disk", true);
    menu->add("net", "Network");
    return menu;
}

Made makeRadioButton(const Place& place) {
    auto group = std::make_unique<RadioButton>(place.name, "", FORM_NAME, "", place.displayMode);
    group->add("on", "On", place.name + "_on", true, false);
    group->add("off", "Off", place.name + "_off", false, false);
    return group;
}

Made makeCheckBox(const Place& place) {
    auto group =
        std::make_unique<CheckBox>(place.name, "", FORM_NAME, "", false, place.displayMode);
    group->add(place.name + "_mail", "1", "Mail", place.name + "_mail", true);
    group->add(place.name + "_trap", "1", "Trap", place.name + "_trap");
    group->add(place.name + "_none", "1", "Never", place.name + "_none", false, true);
    return group;
}

Made makeFileField(const Place& place) {
    return std::make_unique<FileField>(place.name, "firmware.bin", FORM_NAME, "Browse...", WIDTH,
                                       place.displayMode);
}

Made makeSelectFile(const Place& place) {
    return std::make_unique<SelectFile>(place.name, "", FORM_NAME, 20, place.displayMode);
}

Made makeImage(const Place& /*place*/) {
    auto image = std::make_unique<Image>("/images/fan_64x64.gif", "Fan");
    image->resizeImageDispSize(32, 32);
    return image;
}

Made makeButton(const Place& place) {
    const bool editable = place.displayMode == nullptr || *place.displayMode == EDIT_MODE;
    return std::make_unique<Button>(place.name, "Button", FORM_NAME, 0,
                                    "\"alert('" + place.name + "')\"", !editable);
}

Made makeSubmitButton(const Place& place) {
    return std::make_unique<SubmitButton>(place.name, "Submit", FORM_NAME);
}

Made makeResetButton(const Place& place) {
    return std::make_unique<ResetButton>(place.name, "Reset", FORM_NAME);
}

Made makeHiddenField(const Place& place) {
    return std::make_unique<HiddenField>(place.name, "not \"seen\"", FORM_NAME);
}

Made makeTextString(const Place& place) {
    return std::make_unique<TextString>(
        "<text> & colour", false, false,
        place.valid ? TextString::NORMAL_COLOUR : TextString::ERROR_COLOUR);
}

Made makeHyperLink(const Place& place) {
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
    explicit GalleryTable(MessageMgr& messages) : m_messages(messages) {}

    void printHTML() const override {
        std::cout << "<table class=\"gallery\">\n<tr><th></th>";
        for (const Column& column : COLUMNS) {
            std::cout << "<th scope=\"col\">";
            TextString(m_messages.getString(column.head)).printHTML();
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
    void printRow(const Exhibit& exhibit, bool valid) const {
        std::cout << "<tr><th scope=\"row\">" << exhibit.className;
        if (!valid) {
            std::cout << "<br>";
            TextString(m_messages.getString(TEXT_INVALID), false, false, TextString::ERROR_COLOUR)
                .printHTML();
        }
        std::cout << "</th>";
        for (const Column& column : COLUMNS) {
            const std::string name =
                std::string(exhibit.className) + "_" + column.suffix + (valid ? "" : "_invalid");
            const Made component = exhibit.make({name, column.displayMode, valid});
            std::cout << (component->isError() ? "<td class=\"wrong\">" : "<td>");
            component->printHTML();
            std::cout << "</td>";
        }
        std::cout << "</tr>\n";
    }

    MessageMgr& m_messages;
};

class GalleryMain : public PageMain {
public:
    explicit GalleryMain(FormInfo& form) : PageMain(form, MODULE) {}

protected:
    int execMain() override {
        chooseLanguage();
        beginPage(TEXT_GALLERY);
        auto body = std::make_unique<SkeletonPart>("skeleton_gallery.txt");
        body->putText("title", m_messages->getString(TEXT_GALLERY));
        body->putSentence("purpose", m_messages->getString(TEXT_GALLERY_PURPOSE));
        body->put("table", std::make_unique<GalleryTable>(*m_messages));
        printPage(std::move(body));
        return 0;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::GalleryMain>();
}
