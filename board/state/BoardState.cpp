#include "state/BoardState.h"

#include <algorithm>

#include "wire/Calendar.h"
#include "wire/Fields.h"

namespace ORVLib::Board {

namespace {

constexpr int KEPT_EVENTS = 500;  // of each code
constexpr int COUNTED_TOGETHER_S = 600;
constexpr int DEVICES_OF_A_USER = 16;

std::int64_t toSeconds(std::chrono::system_clock::time_point time) {
    return std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count();
}

std::chrono::system_clock::time_point toTime(std::int64_t seconds) {
    return std::chrono::system_clock::time_point(std::chrono::seconds(seconds));
}

// Answers end a text with a NUL, so it must not contain one.
std::string readText(const Query& query, int column) {
    std::string text = query.getBytes(column);
    if (!isPrintable(text)) {
        throw DatabaseError("a text is damaged", SQLITE_CORRUPT);
    }
    return text;
}

// An event's detail, and how often the event came since.
std::string describe(const std::string& detail, std::int64_t count, std::int64_t lastTime) {
    if (count <= 1) {
        return detail;
    }
    const auto second = static_cast<int>(std::max<std::int64_t>(lastTime, 0) % SECONDS_PER_DAY);
    return detail + ", " + std::to_string(count) + " times until " + formatTime(second);
}

User readUser(const Query& query) {
    return User{readText(query, 0),
                readText(query, 1),
                Authority{static_cast<std::uint32_t>(query.getNumber(2)),
                          static_cast<std::uint32_t>(query.getNumber(3))},
                static_cast<unsigned char>(query.getNumber(4)),
                static_cast<std::uint32_t>(query.getNumber(5)),
                query.getBytes(6)};
}

}  // namespace

void BoardState::replaceUser(const User& user) {
    m_database
        .query(
            "INSERT INTO users VALUES (?, ?, ?, ?, ?, ?, ?) ON CONFLICT (name) DO UPDATE SET"
            " password = excluded.password, roles = excluded.roles,"
            " partitions = excluded.partitions, language = excluded.language,"
            " refresh_interval = excluded.refresh_interval, event_filter = excluded.event_filter")
        .bind(user.name)
        .bind(user.passwordHash)
        .bind(user.authority.roles)
        .bind(user.authority.partitions)
        .bind(user.language)
        .bind(user.refreshInterval)
        .bindBlob(user.eventFilter)
        .run();
}

std::optional<User> BoardState::findUser(const std::string& name) {
    Query query = m_database.query(
        "SELECT name, password, roles, partitions, language, refresh_interval, event_filter"
        " FROM users WHERE name = ?");
    return query.bind(name).step() ? std::optional<User>(readUser(query)) : std::nullopt;
}

std::vector<User> BoardState::readUsers() {
    std::vector<User> users;
    Query query = m_database.query(
        "SELECT name, password, roles, partitions, language, refresh_interval, event_filter"
        " FROM users ORDER BY name");
    while (query.step()) {
        users.push_back(readUser(query));
    }
    return users;
}

void BoardState::storeUser(const User& user, const Event& event) {
    Transaction transaction(m_database);
    replaceUser(user);
    insertEvent(event, getTime());
    transaction.commit();
}

void BoardState::resetUser(const User& user, const std::string& keptSession, const Event& event) {
    Transaction transaction(m_database);
    const auto before = findUser(user.name);
    replaceUser(user);
    if (!before || before->passwordHash != user.passwordHash) {
        deleteDevices(user.name, keptSession);
    }
    deleteSessions(user.name, keptSession);
    insertEvent(event, getTime());
    transaction.commit();
}

void BoardState::removeUser(const std::string& name, const Event& event) {
    Transaction transaction(m_database);
    deleteDevices(name, "");
    deleteSessions(name, "");
    m_database.query("DELETE FROM users WHERE name = ?").bind(name).run();
    insertEvent(event, getTime());
    transaction.commit();
}

std::optional<std::string> BoardState::readItem(std::uint32_t id) {
    Query query = m_database.query("SELECT content FROM items WHERE id = ?");
    if (!query.bind(id).step()) {
        return std::nullopt;
    }
    return query.getBytes(0);
}

void BoardState::writeItem(std::uint32_t id, const std::string& content, const Event& event) {
    writeItems({{id, content}}, {event});
}

void BoardState::writeItems(const StoredItems& contents, const std::vector<Event>& events) {
    Transaction transaction(m_database);
    for (const auto& [id, content] : contents) {
        replaceItem(id, content);
    }
    for (const Event& event : events) {
        insertEvent(event, getTime());
    }
    transaction.commit();
}

void BoardState::replaceItem(std::uint32_t id, const std::string& content) {
    m_database.query("REPLACE INTO items VALUES (?, ?)").bind(id).bindBlob(content).run();
}

std::vector<StoredSession> BoardState::readSessions() {
    std::vector<StoredSession> sessions;
    Query query =
        m_database.query("SELECT id, user, address, login_time, last_use, device FROM sessions");
    const std::int64_t now = toSeconds(std::chrono::system_clock::now());
    while (query.step()) {
        // A clock that was set back since must not make a session last longer.
        const std::int64_t lastUse = std::clamp<std::int64_t>(query.getNumber(4), 0, now);
        const std::int64_t loginTime = std::clamp<std::int64_t>(query.getNumber(3), 0, lastUse);
        sessions.push_back({readText(query, 0), readText(query, 1), readText(query, 2),
                            toTime(loginTime), toTime(lastUse), readText(query, 5)});
    }
    return sessions;
}

void BoardState::addSession(const StoredSession& session, const std::vector<std::string>& ended,
                            const Event& event) {
    Transaction transaction(m_database);
    for (const std::string& id : ended) {
        deleteSession(id);
    }
    m_database.query("INSERT INTO sessions VALUES (?, ?, ?, ?, ?, ?)")
        .bind(session.id)
        .bind(session.user)
        .bind(session.address)
        .bind(toSeconds(session.loginTime))
        .bind(toSeconds(session.lastUse))
        .bind(session.device)
        .run();
    if (!session.device.empty()) {
        replaceDevice(session.device, session.user);
    }
    insertEvent(event, getTime());
    transaction.commit();
}

bool BoardState::hasDevice(const std::string& digest) {
    return m_database.query("SELECT 1 FROM devices WHERE digest = ?").bind(digest).step();
}

bool BoardState::hasDevice(const std::string& digest, const std::string& user) {
    return m_database.query("SELECT 1 FROM devices WHERE user = ? AND digest = ?")
        .bind(user)
        .bind(digest)
        .step();
}

void BoardState::addDevice(const std::string& digest, const std::string& user,
                           const std::string& session) {
    Transaction transaction(m_database);
    replaceDevice(digest, user);
    m_database.query("UPDATE sessions SET device = ? WHERE id = ?")
        .bind(digest)
        .bind(session)
        .run();
    transaction.commit();
}

// The row gets a new number, the highest, so that the numbers are in the order of the last use.
void BoardState::replaceDevice(const std::string& digest, const std::string& user) {
    m_database.query("REPLACE INTO devices (user, digest) VALUES (?, ?)")
        .bind(user)
        .bind(digest)
        .run();
    m_database
        .query(
            "DELETE FROM devices WHERE user = ? AND number <= (SELECT number FROM devices"
            " WHERE user = ? ORDER BY number DESC LIMIT 1 OFFSET ?)")
        .bind(user)
        .bind(user)
        .bind(DEVICES_OF_A_USER)
        .run();
}

void BoardState::deleteDevices(const std::string& user, const std::string& keptSession) {
    m_database
        .query(
            "DELETE FROM devices WHERE user = ? AND digest NOT IN"
            " (SELECT device FROM sessions WHERE id = ?)")
        .bind(user)
        .bind(keptSession)
        .run();
}

void BoardState::removeSession(const std::string& id, const Event& event) {
    Transaction transaction(m_database);
    deleteSession(id);
    insertEvent(event, getTime());
    transaction.commit();
}

void BoardState::deleteSession(const std::string& id) {
    m_database.query("DELETE FROM sessions WHERE id = ?").bind(id).run();
}

void BoardState::deleteSessions(const std::string& user, const std::string& keptSession) {
    m_database.query("DELETE FROM sessions WHERE user = ? AND id <> ?")
        .bind(user)
        .bind(keptSession)
        .run();
}

void BoardState::updateSessions(const std::vector<StoredSession>& used,
                                const std::vector<std::string>& ended,
                                const std::vector<TimedEvent>& events) {
    Transaction transaction(m_database);
    for (const StoredSession& session : used) {
        m_database.query("UPDATE sessions SET last_use = ? WHERE id = ?")
            .bind(toSeconds(session.lastUse))
            .bind(session.id)
            .run();
    }
    for (const std::string& id : ended) {
        deleteSession(id);
    }
    for (const TimedEvent& timed : events) {
        insertEvent(timed.event, timed.time);
    }
    transaction.commit();
}

void BoardState::logEvent(const Event& event) {
    Transaction transaction(m_database);
    insertEvent(event, getTime());
    transaction.commit();
}

void BoardState::insertEvent(const Event& event, std::int64_t time) {
    if (event.code == EventCode::LOGIN_REFUSED && countRepetition(event, time)) {
        return;
    }
    m_database
        .query("INSERT INTO events (time, severity, code, user, detail) VALUES (?, ?, ?, ?, ?)")
        .bind(time)
        .bind(static_cast<int>(getSeverity(event.code)))
        .bind(static_cast<int>(event.code))
        .bind(event.user)
        .bind(event.detail)
        .run();
    trimEvents(static_cast<int>(event.code));
}

// Guessed passwords must not fill the log. False when no row of the last minutes can count the
// event.
bool BoardState::countRepetition(const Event& event, std::int64_t time) {
    Query row = m_database.query(
        "SELECT max(number) FROM events"
        " WHERE code = ? AND user = ? AND detail = ? AND time > ? AND time <= ?");
    row.bind(static_cast<int>(event.code))
        .bind(event.user)
        .bind(event.detail)
        .bind(time - COUNTED_TOGETHER_S)
        .bind(time)
        .step();
    const std::int64_t number = row.getNumber(0);
    if (number == 0) {
        return false;
    }
    m_database.query("UPDATE events SET count = count + 1, last_time = ? WHERE number = ?")
        .bind(time)
        .bind(number)
        .run();
    return true;
}

void BoardState::trimEvents(int code) {
    const auto isTooMany = [&] {
        Query all = m_database.query("SELECT count(*) FROM events WHERE code = ?");
        return all.bind(code).step() && all.getNumber(0) > KEPT_EVENTS;
    };
    while (isTooMany()) {
        m_database
            .query(
                "DELETE FROM events WHERE number = (SELECT min(number) FROM events"
                " WHERE code = ? GROUP BY user ORDER BY count(*) DESC, min(number) LIMIT 1)")
            .bind(code)
            .run();
    }
}

std::vector<StoredEvent> BoardState::readEvents(const EventQuery& wanted) {
    std::vector<StoredEvent> events;
    Query query = m_database.query(
        "SELECT number, time, code, user, detail, count, last_time FROM events"
        " WHERE number < ? AND severity >= ? AND ? IN (0, code / 100) AND time >= ? AND time < ?"
        " ORDER BY number DESC LIMIT ?");
    query.bind(wanted.before)
        .bind(static_cast<int>(wanted.severity))
        .bind(wanted.source)
        .bind(wanted.from)
        .bind(wanted.until)
        .bind(wanted.count);
    while (query.step()) {
        events.push_back({query.getNumber(0), query.getNumber(1),
                          static_cast<EventCode>(query.getNumber(2)), readText(query, 3),
                          describe(readText(query, 4), query.getNumber(5), query.getNumber(6))});
    }
    return events;
}

std::int64_t BoardState::getMachineTime() {
    return toSeconds(std::chrono::system_clock::now());
}

// After the clock was set back, the time of an earlier event may be before 1970.
std::int64_t BoardState::toBoardTime(StoredSession::Time time) const {
    return std::max<std::int64_t>(toSeconds(time) + m_timeOffset, 0);
}

}  // namespace ORVLib::Board
