#pragma once

#include <cstdint>
#include <string>

#include "BoardState.h"

namespace ORVLib::Board {

/// The board's information items: who may read and write which, and what may be in them.
///
/// Items the board knows have rules of their own. Any other of the family is read by whoever is
/// logged in, written by system administrators, and holds any bytes.
class Items {
public:
    /// `state` must outlive this.
    explicit Items(BoardState& state) : m_state(state) {}

    /// True for what pages need before anybody has logged in.
    static bool isPublic(std::uint32_t id);

    /// `user` is null for a public item. Throws PException for what is not there or not
    /// allowed.
    std::string read(std::uint32_t id, const User* user);

    /// Throws PException for what is not allowed.
    static void checkRead(std::uint32_t id, const User* user);

    /// Throws PException for what is not allowed or not fit for the item.
    static void checkWrite(std::uint32_t id, const std::string& content, const User& user);

    /// As checkWrite(), and stores the content.
    /// REQUIRES: `id` is not the password, which is changed with its sessions.
    void write(std::uint32_t id, const std::string& content, const User& user);

private:
    BoardState& m_state;
};

}  // namespace ORVLib::Board
