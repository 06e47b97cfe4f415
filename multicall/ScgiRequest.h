#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

/// The header of an SCGI request: a netstring, "<length>:<bytes>,", whose bytes are names and
/// values that each end with a NUL. The body follows the netstring.
///
/// A web server sends it, so a header that breaks a rule is a wrong configuration or an attack, and
/// is refused as a whole.
namespace ORVLib::MultiCall {

struct ScgiHeader {
    std::map<std::string, std::string, std::less<>> parameters;  ///< CONTENT_LENGTH among them
    std::size_t bodySize = 0;
};

/// The highest limit for a header, in bytes.
constexpr int LARGEST_HEADER_LIMIT = 16 * 1024 * 1024;

/// The size of the netstring that `received` begins with, from its first digit to its comma; or 0
/// while its length is incomplete. More bytes than the netstring may be there, or fewer. Throws
/// Refusal when its length is not a number, or more than `largest`.
std::size_t measureNetstring(std::string_view received, int largest);

/// Reads a whole netstring, of the size that measureNetstring() returned. Names with other
/// characters than capitals, digits and "_" are ignored: some web servers send their own settings.
/// Of a header that the client sent twice, HTTP_*, the first value counts, as in a CGI program's
/// environment. Throws Refusal unless the first parameter is CONTENT_LENGTH, a number up to
/// `largestBody`, SCGI is 1, and each other name occurs once.
ScgiHeader parseScgiHeader(std::string_view netstring, int largestBody);

}  // namespace ORVLib::MultiCall
