#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "item/Item.h"
#include "wire/Protocol.h"
#include "wire/Telegram.h"

namespace ORVLib::Board {

/// A request: the telegram, the payload for requests that have one, and the item that it names.
struct Request {
    Request() = default;
    Request(std::uint32_t messageType, Telegram header)
        : type(messageType), telegram(std::move(header)) {}

    /// True when a payload follows the telegram.
    bool hasPayload() const;

    /// True for a log-in and for the writing of an item with a password.
    bool hasPassword() const;

    /// True when the message type is that of an access to an item, known or not.
    bool isItemAccess() const { return (type & FAMILY_MASK) == FAMILY && access != ACCESS_MASK; }

    std::uint32_t type = 0;
    std::uint32_t access = type & ACCESS_MASK;
    NamedItem item = findItem(type & ~ACCESS_MASK);
    Telegram telegram;
    std::string payload;
};

}  // namespace ORVLib::Board
