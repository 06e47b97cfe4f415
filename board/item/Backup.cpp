#include "item/Backup.h"

#include <cstdio>
#include <string_view>

#include "item/BoardClock.h"
#include "item/ItemValidators.h"
#include "protocol/Digest.h"
#include "wire/Protocol.h"

namespace ORVLib::Board::Backup {

namespace {

const std::string HEAD = "orv-settings 1";
const std::string DIGEST_HEAD = "sha256 ";

struct Setting {
    std::uint32_t id;
    std::uint32_t count;
    bool (*isValid)(const std::string& content);
};

// In the order of the file.
constexpr Setting SETTINGS[] = {
    {ITEM_SYSTEM_NAMES, 1, isSystemNames},
    {ITEM_LED, 1, isLed},
    {ITEM_CLOCK, 1, BoardClock::isSettings},
    {ITEM_ADDRESSES, 1, isAddresses},
    {ITEM_SERVICES, 1, isServices},
    {ITEM_TRAPS, 1, isTraps},
    {ITEM_ACCESS_LIST, 1, isAccessList},
    {ITEM_MAIL, 1, isMail},
    {ITEM_PARTITION_SCHEDULE, PARTITION_COUNT, isSchedule},
    {ITEM_PARTITION_BOOT, PARTITION_COUNT, isBoot},
};

template <class Use>
void forEachSetting(const Use& use) {
    for (const Setting& setting : SETTINGS) {
        for (std::uint32_t id = setting.id; id < setting.id + setting.count; ++id) {
            use(id, setting);
        }
    }
}

/// Takes a file apart, line by line.
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

std::string readSetting(BoardState& state, std::uint32_t id, const Setting& setting) {
    return id == ITEM_CLOCK ? BoardClock::readSettings(state)
                            : readValid(state, id, setting.isValid);
}

std::string takeSetting(Reader& reader, std::uint32_t id, const Setting& setting) {
    const auto content = parseHex(reader.take(headOf(id)));
    if (!content || !setting.isValid(*content)) {
        reader.fail();
    }
    return *content;
}

StoredItems parse(std::string_view text) {
    Reader reader(text);
    reader.takeLine(HEAD);
    StoredItems contents;
    forEachSetting([&](std::uint32_t id, const Setting& setting) {
        contents[id] = takeSetting(reader, id, setting);
    });
    reader.takeLine(DIGEST_HEAD + digestOf(text.substr(0, reader.getOffset())));
    reader.takeEnd();
    return contents;
}

}  // namespace

std::string read(const Call& call) {
    std::string text = HEAD + '\n';
    forEachSetting([&](std::uint32_t id, const Setting& setting) {
        text += headOf(id) + formatHex(readSetting(call.state, id, setting)) + '\n';
    });
    return text + DIGEST_HEAD + digestOf(text) + '\n';
}

void restore(const Call& call) {
    StoredItems contents = parse(call.content);
    const std::int64_t offset = BoardClock::restoreSettings(call.state, contents[ITEM_CLOCK]);
    call.state.writeItems(contents, {call.makeEvent(EventCode::SETTINGS_RESTORED, "")});
    call.state.setTimeOffset(offset);
}

}  // namespace ORVLib::Board::Backup
