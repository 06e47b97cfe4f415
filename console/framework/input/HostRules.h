#pragma once

#include <string>

/// The rules for names and addresses of a computer in the network.
namespace Console {

/// True for a host name: half-width letters, digits, hyphens and dots, with a letter or digit at
/// both ends and no two dots in a row. False for the empty text.
bool isHostName(const std::string& name);

/// False for addresses at which no other computer can be reached: "this network" (0), loopback
/// (127), and multicast and reserved addresses (224 and above). REQUIRES: `address` is an IPv4
/// address, with or without mask bits.
bool isHostAddress(const std::string& address);

}  // namespace Console
