#pragma once

#include <string>

#include "item/Call.h"
#include "item/Item.h"

namespace ORVLib::Board {

/// Uses the board's items as their rules allow. Refusals are PExceptions.
class Items {
public:
    /// The parts must outlive this.
    explicit Items(const Parts& parts) : m_parts(parts) {}

    /// `caller` is null for a public item.
    std::string read(const NamedItem& item, const Caller* caller);

    /// Refuses a write that the caller may not do, and a content that does not fit the item.
    void checkWrite(const NamedItem& item, const std::string& content, const Caller& caller);

    /// As checkWrite(), then writes the item. Updates `caller` when the write changes the user.
    /// `passwordHash` is that of the new password in the content, if there is one.
    void write(const NamedItem& item, const std::string& content, Caller& caller,
               const std::string& passwordHash = "");

    /// Writes the item and returns its new content; for a query, returns the answer to `content`.
    std::string exchange(const NamedItem& item, const std::string& content, Caller& caller);

private:
    void requireGroup(unsigned int groups, const NamedItem& item, const Caller* caller);
    bool isAmong(unsigned int groups, const NamedItem& item, const Authority& authority);
    std::string callRead(const NamedItem& item, const Caller* caller, const std::string& content);

    Parts m_parts;
};

}  // namespace ORVLib::Board
