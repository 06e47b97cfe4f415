// A CSV file, and the message numbers that are looked up in it.
#include "Input.h"
#include "gui/MessageMgr.h"
#include "orv/CsvInfoAccess.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    const unsigned int key = input.number(4);
    const std::string text = input.text();
    const int column = static_cast<int>(input.number()) - 1;
    const std::string file = input.body();
    Fuzz::setOpenFile(file);
    ORVLib::ORVUi::CsvInfoAccess csv(Fuzz::OPEN_FILE);
    std::string record = "untouched";
    const bool found = csv.searchRecord(column, text, record);
    Fuzz::require(found ? !csv.isFault() && record.find(text) != std::string::npos
                        : record == "untouched");
    ORVLib::Gui::MessageMgr messages(1);
    unsigned int number = 0;
    const bool hasNumber = messages.getCsvExMsgId(csv, key, number);
    Fuzz::require(hasNumber == (number != 0));
    Fuzz::require(!hasNumber || file.find(std::to_string(key)) != std::string::npos);
    return 0;
}
