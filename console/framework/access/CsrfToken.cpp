#include "framework/access/CsrfToken.h"

#include <nettle/memops.h>

#include "protocol/Digest.h"

namespace Console {

namespace {

constexpr char PURPOSE[] = "form token of session ";
constexpr std::size_t TOKEN_DIGITS = 32;  // 128 bits

}  // namespace

std::string csrfToken(const std::string& sessionId) {
    return ORVLib::Protocol::digestOf(PURPOSE + sessionId).substr(0, TOKEN_DIGITS);
}

bool isCsrfToken(const std::string& text, const std::string& sessionId) {
    const std::string token = csrfToken(sessionId);
    return text.size() == token.size() && memeql_sec(text.data(), token.data(), token.size()) != 0;
}

}  // namespace Console
