// What the server is, and the names its owner gives it.

#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"

namespace {

class InformationPage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_SYSTEM_INFORMATION;

    explicit InformationPage(const Console::PageContext& context)
        : RecordPage(context, FUNCTION, Console::TEXT_SYSTEM_INFORMATION_PURPOSE,
                     Console::ITEM_SYSTEM_NAMES) {
        showProduct();
        addName(Console::TEXT_SYSTEM_NAME, Console::TEXT_WRONG_SYSTEM_NAME, "system_name", 32,
                false);
        addName(Console::TEXT_ASSET_TAG, Console::TEXT_WRONG_ASCII, "asset_tag", 32, true);
        addName(Console::TEXT_LOCATION, Console::TEXT_WRONG_ASCII, "location", 64, true);
        addName(Console::TEXT_CONTACT, Console::TEXT_WRONG_ASCII, "contact", 64, true);
    }

private:
    void showProduct() {
        const Console::Record product = Console::readRecord(getRequester(), Console::ITEM_PRODUCT);
        Console::RecordReader reader(product);
        addShown(Console::TEXT_PRODUCT_NAME, reader.next());
        addShown(Console::TEXT_SERIAL_NUMBER, reader.next());
        addShown(Console::TEXT_FIRMWARE_VERSION, reader.next());
    }

    void addName(Console::Text label, Console::Text hint, const char* name, int maxLength,
                 bool allowEmpty) {
        add(label, hint, std::make_unique<Console::AsciiInput>(name, maxLength, allowEmpty));
    }
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<InformationPage>>();
}
