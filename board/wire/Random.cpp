#include "wire/Random.h"

#include <sys/random.h>

#include <cerrno>
#include <system_error>

namespace ORVLib::Board {

std::string randomBytes(std::size_t count) {
    std::string bytes(count, '\0');
    // So few bytes come whole or not at all, and only an early boot lets the call be interrupted.
    while (::getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "getrandom");
        }
    }
    return bytes;
}

}  // namespace ORVLib::Board
