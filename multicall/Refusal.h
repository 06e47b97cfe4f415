#pragma once

#include <stdexcept>
#include <string>

namespace ORVLib::MultiCall {

/// The end of a request that the server answers by itself, in place of a page.
class Refusal : public std::runtime_error {
public:
    // The statuses.
    static constexpr char BAD_REQUEST[] = "400 Bad Request";
    static constexpr char NOT_FOUND[] = "404 Not Found";
    static constexpr char TIMEOUT[] = "408 Request Timeout";
    static constexpr char TOO_LARGE[] = "413 Payload Too Large";
    static constexpr char INTERNAL_ERROR[] = "500 Internal Server Error";
    static constexpr char NO_STORAGE[] = "507 Insufficient Storage";

    /// `reason` is for the log; the client gets only the status, which must be one of the above.
    Refusal(const char* status, const std::string& reason)
        : std::runtime_error(reason), m_status(status) {}

    const char* getStatus() const { return m_status; }

private:
    const char* m_status;
};

}  // namespace ORVLib::MultiCall
