#include "item/Probation.h"

#include <algorithm>
#include <iterator>

#include "common/Hex.h"
#include "common/ParseNumber.h"
#include "item/Call.h"
#include "item/ItemValidators.h"
#include "protocol/Addresses.h"
#include "protocol/Digest.h"
#include "wire/Fields.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

constexpr std::uint32_t DEFAULT_TIME_S = 120;
constexpr std::chrono::seconds STORE_INTERVAL{10};
constexpr std::chrono::seconds RETRY_INTERVAL{5};

// In the order of the fields in which the settings of before are stored.
struct Setting {
    std::uint32_t item;
    Validator isValid;
    const char* name;
};
constexpr Setting SETTINGS[] = {{ITEM_ADDRESSES, isAddresses, "network addresses"},
                                {ITEM_SERVICES, isServices, "network services"},
                                {ITEM_ACCESS_LIST, isAccessList, "access list"}};

// The content that is stored: the seconds that are left, and the settings of before, in hexadecimal
// digits, or empty for those that are not on probation.
constexpr Field BEFORE = text(0, 4096);
constexpr Field STORED[] = {number(0, MAX_PROBATION_S), BEFORE, BEFORE, BEFORE};

const char* const OFF = "off";

// The port at which a service has to be reached; empty when it may be any.
std::string neededPort(const Record& before, const Record& present, std::size_t service) {
    const std::size_t port = service + 1;
    if (before[service] == "1" && present[service] != "1") {
        return OFF;
    }
    return before[port] != present[port] ? present[port] : "";
}

}  // namespace

Probation::Probation(BoardState& state) : m_state(state) {
    const auto kept = find();  // reading a damaged one fails
    if (kept && !kept->before.empty()) {
        begin(std::chrono::seconds(kept->rest));
    }
}

void Probation::begin(std::chrono::seconds time) {
    m_end = Clock::now() + time;
    m_nextStore = Clock::now() + STORE_INTERVAL;
}

void Probation::stop() {
    m_end = m_nextStore = Clock::time_point::max();
}

std::uint32_t Probation::readTime(BoardState& state) {
    return state.readItem(ITEM_PROBATION_TIME)
               ? readNumber(readValid(state, ITEM_PROBATION_TIME, isProbationTime), 0)
               : DEFAULT_TIME_S;
}

std::optional<Probation::Kept> Probation::parse(const std::string& content) {
    const auto fields = parseRecord(content, STORED);
    if (!fields) {
        return std::nullopt;
    }
    Kept kept;
    kept.rest = *parseNumber(fields->front(), 0, MAX_PROBATION_S);
    for (std::size_t i = 0; i < std::size(SETTINGS); ++i) {
        const std::string& digits = fields->at(i + 1);
        if (digits.empty()) {
            continue;
        }
        const auto before = parseHex(digits);
        if (!before || !SETTINGS[i].isValid(*before)) {
            return std::nullopt;
        }
        kept.before[SETTINGS[i].item] = *before;
    }
    return kept;
}

std::string Probation::format(const Kept& kept) {
    Record fields = {std::to_string(kept.rest)};
    for (const Setting& setting : SETTINGS) {
        const auto before = kept.before.find(setting.item);
        fields.push_back(before != kept.before.end() ? formatHex(before->second) : "");
    }
    return formatRecord(fields);
}

// None when the stored one is damaged.
std::optional<Probation::Kept> Probation::find() {
    const auto content = m_state.readItem(ITEM_PROBATION);
    return content ? parse(*content) : Kept();
}

Probation::Kept Probation::load() {
    auto kept = find();
    if (!kept) {
        throw DatabaseError("the probation is damaged", SQLITE_CORRUPT);
    }
    return std::move(*kept);
}

void Probation::write(StoredItems contents, const Event& event) {
    const auto seconds = static_cast<int>(readTime(m_state));
    Kept kept = find().value_or(Kept());
    bool isChanged = false;
    for (const Setting& setting : SETTINGS) {
        const auto content = contents.find(setting.item);
        if (content != contents.end() && m_state.readItem(setting.item) != content->second) {
            noteChange(kept, setting.item, content->second, seconds > 0);
            isChanged = true;
        }
    }
    if (isChanged) {
        kept.rest = seconds > 0 ? seconds : getRest();
        contents[ITEM_PROBATION] = format(kept);
    }
    m_state.writeItems(contents, {event});
    if (isChanged && kept.before.empty()) {
        stop();
    } else if (isChanged) {
        begin(std::chrono::seconds(kept.rest));
    }
}

// A damaged setting is none that the board could go back to.
void Probation::noteChange(Kept& kept, std::uint32_t item, const std::string& content, bool isOn) {
    const auto before = kept.before.find(item);
    if (before != kept.before.end()) {
        if (before->second == content) {
            kept.before.erase(before);
        }
        return;
    }
    const auto present = m_state.readItem(item);
    if (isOn && present && findItem(item).rules->isValid(*present)) {
        kept.before[item] = *present;
    }
}

std::string Probation::read() {
    const Kept kept = load();
    if (kept.before.empty()) {
        return formatRecord({"0", "000", "", "", "", ""});
    }
    std::string flags;
    for (const Setting& setting : SETTINGS) {
        flags += kept.before.count(setting.item) != 0 ? '1' : '0';
    }
    const Needed needed = findNeeded(kept);
    return formatRecord({std::to_string(getRest()), flags, makeRevision(kept), needed.address,
                         needed.ports[0], needed.ports[1]});
}

std::string Probation::makeRevision(const Kept& kept) {
    Digest digest;
    for (const auto& [item, before] : kept.before) {
        digest.add(formatNumber(item) + before + m_state.readItem(item).value_or(""));
    }
    return digest.getHex().substr(0, REVISION_DIGITS);
}

Probation::Kept Probation::require(const std::string& revision) {
    Kept kept = load();
    if (kept.before.empty() || makeRevision(kept) != revision) {
        throw boardError(ERROR_NOT_FOUND, "these settings do not wait to be confirmed");
    }
    return kept;
}

Probation::Needed Probation::findNeeded(const Kept& kept) {
    Needed needed;
    const auto addresses = kept.before.find(ITEM_ADDRESSES);
    if (addresses != kept.before.end()) {
        const Record present = *parseTexts(readValid(m_state, ITEM_ADDRESSES, isAddresses));
        const std::string& address = present[ADDRESS_FIELD];
        needed.address = parseTexts(addresses->second)->at(ADDRESS_FIELD) != address ? address : "";
    }
    const auto services = kept.before.find(ITEM_SERVICES);
    if (services != kept.before.end()) {
        const Record before = *parseTexts(services->second);
        const Record present = *parseTexts(readValid(m_state, ITEM_SERVICES, isServices));
        needed.ports[0] = neededPort(before, present, SERVICES_HTTP);
        needed.ports[1] = neededPort(before, present, SERVICES_HTTPS);
    }
    needed.isClientListed = kept.before.count(ITEM_ACCESS_LIST) != 0;
    return needed;
}

bool Probation::isListed(const std::string& client) {
    const Record list = *parseRows(readValid(m_state, ITEM_ACCESS_LIST, isAccessList), ACCESS_ROW);
    bool isFound = list.empty();
    for (auto row = list.begin(); row != list.end(); row += std::size(ACCESS_ROW)) {
        isFound |= isInNetwork(client, row[0], *parseNumber(row[1], 1, ADDRESS_BITS));
    }
    return isFound;
}

bool Probation::fits(const Kept& kept, const Reached& reached) {
    const Needed needed = findNeeded(kept);
    const std::string& port = needed.ports[reached.isEncrypted ? 1 : 0];
    const bool isAddress = needed.address.empty() ||
                           parseAddress(needed.address) == parseAddress(reached.serverAddress);
    return isAddress && (port.empty() || port == reached.port) &&
           (!needed.isClientListed || isListed(reached.client));
}

void Probation::confirm(const std::string& revision, const Reached& reached,
                        const std::string& user) {
    const Kept kept = require(revision);
    if (!fits(kept, reached)) {
        throw boardError(ERROR_NOT_REACHED, "the user came by other network settings");
    }
    end(kept, {}, EventCode::NETWORK_CONFIRMED, user);
}

void Probation::undo(const std::string& revision, const std::string& user) {
    const Kept kept = require(revision);
    end(kept, kept.before, EventCode::NETWORK_UNDONE, user);
}

void Probation::end(const Kept& kept, StoredItems contents, EventCode code,
                    const std::string& user) {
    std::string names;
    for (const Setting& setting : SETTINGS) {
        if (kept.before.count(setting.item) != 0) {
            names += (names.empty() ? "" : ", ") + std::string(setting.name);
        }
    }
    contents[ITEM_PROBATION] = format({});
    m_state.writeItems(contents, {{code, user, names}});
    stop();
}

Probation::Clock::time_point Probation::getDeadline() const {
    return std::min(m_end, m_nextStore);
}

void Probation::proceed() {
    const Clock::time_point now = Clock::now();
    if (now >= m_end) {
        m_end = now + RETRY_INTERVAL;  // should the state fail
        const Kept kept = load();
        end(kept, kept.before, EventCode::NETWORK_EXPIRED, "");
    } else if (now >= m_nextStore) {
        m_nextStore = now + STORE_INTERVAL;
        storeRest();
    }
}

void Probation::storeRest() {
    if (m_end != Clock::time_point::max()) {
        Kept kept = load();
        kept.rest = getRest();
        m_state.writeItems({{ITEM_PROBATION, format(kept)}}, {});
    }
}

int Probation::getRest() const {
    if (m_end == Clock::time_point::max()) {
        return 0;
    }
    const auto rest = std::chrono::ceil<std::chrono::seconds>(m_end - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(rest, 0, MAX_PROBATION_S));
}

}  // namespace ORVLib::Board
