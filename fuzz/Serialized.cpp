// Hostile serialised objects and framed messages: an accepted one has the bytes that were sent.
#include <algorithm>
#include <memory>
#include <vector>

#include "MessageStream.h"
#include "Peer.h"
#include "common/ByteOrder.h"
#include "gui/MaintenanceMode.h"
#include "orv/GeneralPurposePacket.h"
#include "orv/PException.h"

using namespace ORVLib;

namespace {

template <typename Object>
void checkObject(const std::string& bytes) {
    Object object;
    const std::vector<unsigned char> sent(bytes.begin(), bytes.end());  // no byte behind it is ours
    if (!object.setSerialized(sent.data(), static_cast<unsigned int>(sent.size()))) {
        return;
    }
    std::vector<unsigned char> written(object.getSerializedSize());
    const auto size = static_cast<unsigned int>(written.size());
    Fuzz::require(object.getSerialized(written.data(), size) != 0);
    const auto same = static_cast<std::ptrdiff_t>(std::min(sent.size(), written.size()));
    Fuzz::require(std::equal(sent.begin(), sent.begin() + same, written.begin()));
    try {
        Fuzz::require(object.getSerialized(written.data(), size - 1) == 0);
    } catch (const PException&) {  // as good an answer
    }
}

/// The messages of a stream, up to the first bytes that are none.
void checkStream(const std::string& bytes) {
    constexpr int LONGEST = 40000;
    ORVIpc::MessageStream stream(Fuzz::connected(bytes), LONGEST);
    std::size_t at = 0;
    try {
        while (stream.receive() == ORVIpc::MessageStream::Arrival::BYTES) {
            while (stream.hasMessage()) {
                const auto [type, payload] = stream.take();
                const std::string frame =
                    ORVIpc::frameMessage(type, payload.data(), payload.size());
                Fuzz::require(bytes.compare(at, frame.size(), frame) == 0);
                at += frame.size();
            }
        }
        Fuzz::require(stream.isEmpty() == (at == bytes.size()));
    } catch (const PException&) {
        Fuzz::require(bytes.size() - at >= 8);
        const auto* const header = reinterpret_cast<const unsigned char*>(&bytes[at]);
        Fuzz::require(Bytes::read32(header + 4) > LONGEST);
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr void (*CHECKS[])(const std::string&) = {
        checkObject<PException>, checkObject<ORVUi::GeneralPurposePacket>,
        checkObject<ORVUi::PrimitiveTypeWrapper<long>>,
        checkObject<ORVUi::PrimitiveTypeWrapper<ORVUi::ORV_MAINTENANCE_MODE>>, checkStream};
    Fuzz::Input input(data, size);
    const auto check = CHECKS[input.number() % std::size(CHECKS)];
    check(input.body());
    return 0;
}
