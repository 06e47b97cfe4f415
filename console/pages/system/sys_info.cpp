// The product data of the server, and the names that its owner gives it.

#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"

namespace Console {

namespace {

class InformationPage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_SYSTEM_INFORMATION);

    explicit InformationPage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_SYSTEM_INFORMATION_PURPOSE, ITEM_SYSTEM_NAMES) {
        showProduct();
        addName(TEXT_SYSTEM_NAME, TEXT_WRONG_SYSTEM_NAME, "system_name", 32, false);
        addName(TEXT_ASSET_TAG, TEXT_WRONG_ASCII, "asset_tag", 32, true);
        addName(TEXT_LOCATION, TEXT_WRONG_ASCII, "location", 64, true);
        addName(TEXT_CONTACT, TEXT_WRONG_ASCII, "contact", 64, true);
    }

private:
    void showProduct() {
        const Record product = readRecord(getRequester(), ITEM_PRODUCT);
        RecordReader reader(product);
        addShown(TEXT_PRODUCT_NAME, reader.next());
        addShown(TEXT_SERIAL_NUMBER, reader.next());
        addShown(TEXT_FIRMWARE_VERSION, reader.next());
    }

    void addName(Text label, Text hint, const char* name, int maxLength, bool allowEmpty) {
        add(label, hint, std::make_unique<AsciiInput>(name, maxLength, allowEmpty));
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SettingsMain<Console::InformationPage>>();
}
