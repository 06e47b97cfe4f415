#pragma once

#include <cstdint>
#include <string>

namespace ORVLib::Board {

struct Call;

using Validator = bool (*)(const std::string& content);

/// Who may use an item, as bits.
enum Group : unsigned int {
    NOBODY = 0,
    SYSTEM_ADMINISTRATORS = 1,
    PARTITION_ADMINISTRATORS = 2,  ///< of the item's partition, or of any where it has none
    TECHNICAL_STAFF = 4,
    OPERATORS = 8,
    MAINTENANCE_STAFF = 16,  ///< technical staff while the maintenance mode permits the power
    ALL_USERS = 32,
    EVERYBODY = 64  ///< without a session, too
};

/// Whether the board has an item once, or one for each partition.
enum class Scope { BOARD, PARTITION };

enum class Kind {
    CONTENT,
    PASSWORD,  ///< content with a password, which is written with its hash
    QUERY      ///< exchanged only: the content is a question and read() answers it
};

/// The rules of an item: a row of the table in ItemTable.cpp.
struct Item {
    std::uint32_t id;
    Scope scope;
    Kind kind;
    unsigned int readers;  ///< groups
    unsigned int writers;  ///< groups
    Validator isValid = nullptr;
    std::string (*read)(const Call& call) = nullptr;  ///< needed when anybody reads it
    void (*write)(const Call& call) = nullptr;        ///< needed when anybody writes it
    const char* name = nullptr;                       ///< in the event log, for Stored::write()
};

/// An item as a request names it.
struct NamedItem {
    std::uint32_t id;   ///< with the partition's number
    const Item* rules;  ///< never null

    bool isPublic() const { return (rules->readers & EVERYBODY) != 0; }
};

/// Items that the table does not have are read by all users and written by system administrators,
/// and hold any bytes.
NamedItem findItem(std::uint32_t id);

}  // namespace ORVLib::Board
