#pragma once

#include <string>

namespace ORVLib::Board {

/// Hashes a new password with the system's crypt() and a random salt.
/// Throws std::runtime_error when the system cannot.
std::string hashPassword(const std::string& password);

/// Takes some tens of milliseconds whatever the password is, and 16 MiB of memory. Throws
/// std::runtime_error when the system cannot hash it, which does not mean a wrong password.
bool matchesPassword(const std::string& password, const std::string& hash);

}  // namespace ORVLib::Board
