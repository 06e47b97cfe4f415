#pragma once

#include <cstddef>
#include <string>

namespace ORVLib::Board {

/// So many bytes of the kernel's random source, 256 at most.
std::string randomBytes(std::size_t count);

}  // namespace ORVLib::Board
