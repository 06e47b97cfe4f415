#pragma once

#include <cstddef>

#include "common/FileDescriptor.h"
#include "multicall/RequestStream.h"

namespace ORVLib::MultiCall {

/// Receives a body of `size` bytes, whole, into a file without a name: in memory up to 64 KiB, and
/// in /var/tmp above. Returns the file, to be read from its start. It needs no clean-up: it is gone
/// when its last descriptor is closed, also by the end of a killed process. Throws Refusal.
FileDescriptor receiveBody(RequestStream& stream, std::size_t size);

}  // namespace ORVLib::MultiCall
