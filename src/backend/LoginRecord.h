#pragma once

#include <string.h>

#include <cstring>
#include <string>

namespace ORVLib::Gui {

/// The payload of a login: three texts, each filled with NUL bytes to the end of its field. It is
/// overwritten when the object is destroyed, so that no password stays in memory.
class LoginRecord {
public:
    LoginRecord(const std::string& user, const std::string& password, const std::string& client) {
        copy(user, 0, 32);
        copy(password, 36, 32);
        copy(client, 72, 128);
    }
    ~LoginRecord() { explicit_bzero(m_bytes, sizeof m_bytes); }
    LoginRecord(const LoginRecord&) = delete;
    LoginRecord& operator=(const LoginRecord&) = delete;

    static constexpr int SIZE = 204;
    const unsigned char* data() const { return m_bytes; }

private:
    /// Copies the first `limit` bytes of a text, up to its first NUL byte.
    void copy(const std::string& text, std::size_t offset, std::size_t limit) {
        std::memcpy(m_bytes + offset, text.data(), strnlen(text.c_str(), limit));
    }

    unsigned char m_bytes[SIZE] = {};
};

}  // namespace ORVLib::Gui
