// Serialised objects and framed messages from anywhere: what is taken is what was sent.
#include <memory>
#include <vector>

#include "MessageStream.h"
#include "common/ByteOrder.h"
#include "gui/MaintenanceMode.h"
#include "orv/GeneralPurposePacket.h"
#include "orv/PException.h"
#include "support/Peer.h"

using namespace ORVLib;

namespace {

void checkObject(SerializableObject&& object, const std::string& bytes) {
    const std::vector<unsigned char> sent(bytes.begin(), bytes.end());  // no byte behind it is ours
    if (!object.setSerialized(sent.data(), static_cast<unsigned int>(sent.size()))) {
        return;
    }
    std::vector<unsigned char> written(object.getSerializedSize());
    const auto size = static_cast<unsigned int>(written.size());
    Fuzz::require(object.getSerialized(written.data(), size) != 0);
    const std::size_t same = std::min(sent.size(), written.size());
    Fuzz::require(std::equal(sent.begin(), sent.begin() + static_cast<std::ptrdiff_t>(same),
                             written.begin()));
    try {
        Fuzz::require(object.getSerialized(written.data(), size - 1) == 0);
    } catch (const PException&) {  // as good an answer
    }
}

/// The messages of a stream, up to what is none.
void checkStream(const std::string& bytes, int maximum) {
    ORVIpc::MessageStream stream(Fuzz::connected(bytes), maximum);
    std::size_t at = 0;
    try {
        while (stream.receive() == ORVIpc::MessageStream::Arrival::BYTES) {
            while (stream.hasMessage()) {
                const ORVIpc::Message message = stream.take();
                const std::string frame = ORVIpc::frameMessage(message.type, message.payload.data(),
                                                               message.payload.size());
                Fuzz::require(bytes.compare(at, frame.size(), frame) == 0);
                at += frame.size();
            }
        }
        Fuzz::require(stream.isEmpty() == (at == bytes.size()));
    } catch (const PException&) {
        const auto* const next = reinterpret_cast<const unsigned char*>(bytes.data()) + at;
        Fuzz::require(bytes.size() - at >= 8 &&
                      Bytes::read32(next + 4) > static_cast<unsigned int>(maximum));
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    const unsigned int kind = input.number() % 5;
    const std::string bytes = input.body();
    switch (kind) {
        case 0:
            checkObject(PException(), bytes);
            break;
        case 1:
            checkObject(ORVUi::GeneralPurposePacket(), bytes);
            break;
        case 2:
            checkObject(ORVUi::PrimitiveTypeWrapper<long>(), bytes);
            break;
        case 3:
            checkObject(ORVUi::PrimitiveTypeWrapper<ORVUi::ORV_MAINTENANCE_MODE>(), bytes);
            break;
        default:
            checkStream(bytes, 40000);
    }
    return 0;
}
