#include "shared/Board.h"

#include "gui/BackendNumbers.h"
#include "orv/PException.h"

using ORVLib::Gui::CGIRequester;

namespace Console {

void failWith(const CGIRequester& requester) {
    throw ORVLib::PException(1, 2, 0, requester.getActionCode(),
                             static_cast<int>(requester.getErrorDetail()), 0, 0, 0, 0, 0, 0, 0, 0,
                             0);
}

std::uint32_t readNumber(CGIRequester& requester, unsigned int item) {
    unsigned char bytes[4];
    if (requester.getInfo(item, bytes, sizeof bytes) == 0) {
        failWith(requester);
    }
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
}

void writeNumber(CGIRequester& requester, unsigned int item, std::uint32_t number) {
    const unsigned char bytes[4] = {
        static_cast<unsigned char>(number >> 24), static_cast<unsigned char>(number >> 16),
        static_cast<unsigned char>(number >> 8), static_cast<unsigned char>(number)};
    if (requester.setInfo(item | ORVLib::Gui::ITEM_WRITE, sizeof bytes, bytes) == 0) {
        failWith(requester);
    }
}

}  // namespace Console
