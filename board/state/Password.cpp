#include "state/Password.h"

#include <crypt.h>

#include <array>
#include <memory>
#include <stdexcept>

namespace ORVLib::Board {

namespace {

constexpr const char* YESCRYPT = "$y$";
constexpr unsigned long DEFAULT_COST = 0;

// crypt() does not say why it fails: it lacks memory, or the setting is damaged.
std::string crypted(const std::string& password, const std::string& setting) {
    const auto work = std::make_unique<crypt_data>();
    const char* const hash = ::crypt_rn(password.c_str(), setting.c_str(), work.get(),
                                        static_cast<int>(sizeof(crypt_data)));
    if (hash == nullptr) {
        throw std::runtime_error("the system cannot hash a password with its yescrypt setting");
    }
    return hash;
}

}  // namespace

std::string hashPassword(const std::string& password) {
    std::array<char, CRYPT_GENSALT_OUTPUT_SIZE> salt{};
    if (::crypt_gensalt_rn(YESCRYPT, DEFAULT_COST, nullptr, 0, salt.data(),
                           static_cast<int>(salt.size())) == nullptr) {
        throw std::runtime_error("the system cannot make a password salt");
    }
    return crypted(password, salt.data());
}

bool matchesPassword(const std::string& password, const std::string& hash) {
    return !hash.empty() && crypted(password, hash) == hash;
}

}  // namespace ORVLib::Board
