#pragma once

#include <string>

namespace ORVLib::Board {

/// Where a log-in comes from, as its client says.
struct LoginClient {
    std::string address;
    std::string device;  ///< the ID of a browser that keeps one; empty without one

    /// "ADDRESS" or "ADDRESS DEVICE". A text of any other form is an address.
    static LoginClient parse(const std::string& text);

    /// What one person has of addresses: an IPv4 address, or the first 64 bits of an IPv6 one.
    std::string getNetwork() const;
};

}  // namespace ORVLib::Board
