#include "item/Backup.h"

#include <cstdio>
#include <string_view>

#include "item/BoardClock.h"
#include "item/Item.h"
#include "item/Probation.h"
#include "protocol/Digest.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::Backup {

namespace {

const std::string HEAD = "orv-settings 1";
const std::string DIGEST_HEAD = "sha256 ";

// In the order of the file.
constexpr std::uint32_t SETTINGS[] = {
    ITEM_SYSTEM_NAMES, ITEM_LED,         ITEM_CLOCK, ITEM_ADDRESSES,          ITEM_SERVICES,
    ITEM_TRAPS,        ITEM_ACCESS_LIST, ITEM_MAIL,  ITEM_PARTITION_SCHEDULE, ITEM_PARTITION_BOOT,
};

template <class Use>
void forEachSetting(const Use& use) {
    for (const std::uint32_t setting : SETTINGS) {
        const Item& rules = *findItem(setting).rules;
        const std::uint32_t count = rules.scope == Scope::PARTITION ? PARTITION_COUNT : 1;
        for (std::uint32_t id = setting; id < setting + count; ++id) {
            use(id, id == ITEM_CLOCK ? BoardClock::isSettings : rules.isValid);
        }
    }
}

/// Reads a file line by line.
class Reader {
public:
    explicit Reader(std::string_view text) : m_text(text) {}

    /// What follows `head` in the next line.
    std::string_view take(const std::string& head) {
        ++m_line;
        const std::size_t end = m_text.find('\n', m_offset);
        const std::string_view line = m_text.substr(m_offset, end - m_offset);
        if (end == std::string_view::npos || line.substr(0, head.size()) != head) {
            fail();
        }
        m_offset = end + 1;
        return line.substr(head.size());
    }

    void takeLine(const std::string& line) {
        if (!take(line).empty()) {
            fail();
        }
    }

    void takeEnd() const {
        if (m_offset != m_text.size()) {
            fail();
        }
    }

    std::size_t getOffset() const { return m_offset; }

    [[noreturn]] void fail() const {
        throw boardError(ERROR_DAMAGED, "no backup, or a damaged one; the line is", m_line);
    }

private:
    std::string_view m_text;
    std::size_t m_offset = 0;
    std::uint32_t m_line = 0;
};

std::string headOf(std::uint32_t id) {
    char head[sizeof "item 0000 "];
    std::snprintf(head, sizeof head, "item %04x ", id & 0xffffU);
    return head;
}

std::string readSetting(BoardState& state, std::uint32_t id, Validator isValid) {
    return id == ITEM_CLOCK ? BoardClock::readSettings(state) : readValid(state, id, isValid);
}

std::string takeSetting(Reader& reader, std::uint32_t id, Validator isValid) {
    const auto content = parseHex(reader.take(headOf(id)));
    if (!content || !isValid(*content)) {
        reader.fail();
    }
    return *content;
}

StoredItems parse(std::string_view text) {
    Reader reader(text);
    reader.takeLine(HEAD);
    StoredItems contents;
    forEachSetting([&](std::uint32_t id, Validator isValid) {
        contents[id] = takeSetting(reader, id, isValid);
    });
    reader.takeLine(DIGEST_HEAD + digestOf(text.substr(0, reader.getOffset())));
    reader.takeEnd();
    return contents;
}

}  // namespace

std::string read(const Call& call) {
    std::string text = HEAD + '\n';
    forEachSetting([&](std::uint32_t id, Validator isValid) {
        text += headOf(id) + formatHex(readSetting(call.state, id, isValid)) + '\n';
    });
    return text + DIGEST_HEAD + digestOf(text) + '\n';
}

void restore(const Call& call) {
    StoredItems contents = parse(call.content);
    const std::int64_t offset = BoardClock::restoreSettings(call.state, contents[ITEM_CLOCK]);
    call.probation.write(contents, call.makeEvent(EventCode::SETTINGS_RESTORED, ""));
    call.state.setTimeOffset(offset);
}

}  // namespace ORVLib::Board::Backup
