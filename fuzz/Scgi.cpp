// The header of an SCGI request, as a web server's connection brings it: in two pieces.
#include "Input.h"
#include "multicall/Refusal.h"
#include "multicall/ScgiRequest.h"

using namespace ORVLib::MultiCall;

namespace {

constexpr int LARGEST_HEADER = 400;
constexpr int LARGEST_BODY = 100'000;

void read(const std::string& received, std::size_t first) {
    const std::size_t early = measureNetstring(received.substr(0, first), LARGEST_HEADER);
    const std::size_t size = measureNetstring(received, LARGEST_HEADER);
    Fuzz::require(early == 0 || early == size);
    if (size == 0 || size > received.size()) {
        return;
    }
    const ScgiHeader header = parseScgiHeader(received.substr(0, size), LARGEST_BODY);
    std::string length;
    for (const auto& [name, value] : header.parameters) {
        const std::string text = name + '\0' + value + '\0';
        Fuzz::require(received.find(text) < size && !name.empty());
        length = name == "CONTENT_LENGTH" ? value : length;
    }
    Fuzz::require(length == std::to_string(header.bodySize) && header.bodySize <= LARGEST_BODY);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    const std::size_t first = input.number();
    try {
        read(input.body(), first);
    } catch (const Refusal&) {
    }
    return 0;
}
