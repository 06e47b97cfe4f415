#pragma once

#include <cstdint>
#include <string>

#include "item/Call.h"
#include "state/BoardState.h"
#include "state/Sessions.h"

namespace ORVLib::Board {

/// The board's information items: who may read and write which, and what may be in them.
///
/// Items the board knows have rules of their own. Any other of the family is read by whoever is
/// logged in, written by system administrators, and holds any bytes.
class Items {
public:
    /// The parts must outlive this.
    explicit Items(const Parts& parts) : m_parts(parts) {}

    /// True for what pages need before anybody has logged in.
    static bool isPublic(std::uint32_t id);

    /// True for an item whose content holds a password: it is written with that one's hash.
    static bool holdsPassword(std::uint32_t id);

    /// `caller` is null for a public item. Throws PException for what is not there or not allowed.
    std::string read(std::uint32_t id, const Caller* caller);

    /// Throws PException for what is not allowed or not fit for the item.
    void checkWrite(std::uint32_t id, const std::string& content, const Caller& caller);

    /// As checkWrite(), and stores the content or does what it asks for. Takes what that made of
    /// the user into `caller`.
    void write(std::uint32_t id, const std::string& content, Caller& caller,
               const std::string& passwordHash = "");

    /// Writes and reads what is there then; or asks, where the content is a question.
    std::string exchange(std::uint32_t id, const std::string& content, Caller& caller);

private:
    void store(std::uint32_t id, const std::string& content, const User& user);
    void requireAmong(unsigned int who, std::uint32_t id, const Caller* caller);

    Parts m_parts;
};

}  // namespace ORVLib::Board
