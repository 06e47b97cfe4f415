#pragma once

#include <string>

/// Which names and addresses a computer in the network can have.
namespace Console {

/// True for a host name: half-width letters, digits, hyphens and dots, with a letter or digit at
/// both ends and something between any two dots. The empty text is none.
bool isHostName(const std::string& name);

/// False for addresses that no computer is reached at from another one: those of "this network"
/// (0), the loopback ones (127), and those from 224 on, which are for groups or reserved.
/// REQUIRES: `address` is an IPv4 address, with or without mask bits.
bool isHostAddress(const std::string& address);

}  // namespace Console
