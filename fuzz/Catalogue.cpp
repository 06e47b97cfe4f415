// A catalogue file: its strings against a plain reading of it, and messages with their codes.
#include "Input.h"
#include "common/ByteOrder.h"
#include "gui/MessageMgr.h"

using ORVLib::Gui::MessageMgr;

namespace {

constexpr std::size_t LARGEST = 0x110000;  // some are not taken into memory as a whole

std::uint32_t wordAt(const std::string& file, std::size_t index) {
    return ORVLib::Bytes::read32(reinterpret_cast<const unsigned char*>(file.data()) + 4 * index);
}

std::string stringOf(const std::string& file, int id) {
    const std::size_t words = file.size() / 4;
    const std::size_t count = words > 0 ? wordAt(file, 0) : 0;
    if (words == 0 || count > words - 1 || id < 0 || static_cast<std::size_t>(id) >= count) {
        return "failed to read string for CGI";
    }
    const std::size_t start = 4 + 4 * count + wordAt(file, 1 + static_cast<std::size_t>(id));
    return start < file.size() ? file.substr(start, file.find('\0', start) - start) : "";
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    const int language = static_cast<int>(input.number()) - 1;
    const bool large = input.number() >= 0xf0;
    const int id = input.signedNumber();
    const std::string file = input.body(large ? LARGEST : 70000);
    Fuzz::setOpenFile(file);
    MessageMgr messages(language);
    for (const int asked : {0, 1, 2, id, 0}) {
        Fuzz::require(messages.getString(asked) == stringOf(file, asked));
    }
    const std::string message = messages.getExpMessage(id, id, 5, "one", "two");
    char suffix[32];
    std::snprintf(suffix, sizeof suffix, " (00:%04x)",
                  static_cast<unsigned int>(id == 0x700 ? 0xd05 : id));
    const std::size_t at = message.rfind(" (00:");
    Fuzz::require(id > 0 ? message.substr(std::min(at, message.size())) == suffix
                         : at == std::string::npos);
    return 0;
}
