#pragma once

#include <memory>
#include <vector>

#include "orv/PrimitiveTypeWrapper.h"
#include "orv/SerializableObject.h"

namespace ORVLib::ORVUi {

/// A list of objects that cross the wire together.
///
/// Serialised: the number of components, then of each its kind, its length in bytes and its own
/// serialised form; the three numbers are 32 bits. Kind 1 is a PrimitiveTypeWrapper<long>, and no
/// other kind exists yet.
class GeneralPurposePacket : public SerializableObject {
public:
    /// Appends a component. REQUIRES: `component` is not null.
    void addComponent(std::unique_ptr<PrimitiveTypeWrapper<long>> component);

    /// The component at `index` (from 0), or null when there is none. It stays the packet's.
    SerializableObject* getCompInfo(int index);

    unsigned int getSerialized(unsigned char* buffer, unsigned int size) const override;
    unsigned int getSerializedSize() const override;

    /// Refuses unknown kinds, lengths that do not fit and bytes left over; the packet then stays
    /// as it was. Otherwise the components of before are gone.
    bool setSerialized(const unsigned char* data, unsigned int size) override;

private:
    std::vector<std::unique_ptr<PrimitiveTypeWrapper<long>>> m_components;
};

}  // namespace ORVLib::ORVUi
