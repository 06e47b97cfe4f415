#pragma once

#include <memory>
#include <vector>

#include "orv/PrimitiveTypeWrapper.h"
#include "orv/SerializableObject.h"

namespace ORVLib::ORVUi {

/// A list of serialisable objects that are sent together.
///
/// The serialised form is the number of components, then for each component its kind, its length in
/// bytes and its serialised form. The numbers have 32 bits. The only kind is 1, a
/// PrimitiveTypeWrapper<long>.
///
/// @code
/// ORVUi::GeneralPurposePacket packet;
/// packet.addComponent(std::make_unique<ORVUi::PrimitiveTypeWrapper<long>>(1));
/// CGIRequester requester("the session ID from the cookie");
/// requester.setInfo(ITEM_MAINTENANCE_POWER + ITEM_WRITE, packet);
/// @endcode
class GeneralPurposePacket : public SerializableObject {
public:
    /// Appends a component. REQUIRES: `component` is not null.
    void addComponent(std::unique_ptr<PrimitiveTypeWrapper<long>> component);

    /// The component at `index`, from 0, or null when there is none. The packet owns it.
    SerializableObject* getCompInfo(int index);

    unsigned int getSerialized(unsigned char* buffer, unsigned int size) const override;
    unsigned int getSerializedSize() const override;

    /// Replaces all components. Returns false and changes nothing for an unknown kind, a wrong
    /// length or trailing bytes.
    bool setSerialized(const unsigned char* data, unsigned int size) override;

private:
    std::vector<std::unique_ptr<PrimitiveTypeWrapper<long>>> m_components;
};

}  // namespace ORVLib::ORVUi
