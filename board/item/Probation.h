#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "state/BoardState.h"

namespace ORVLib::Board {

/// Changes of the network settings that wait to be confirmed. Addresses, services and access list
/// take effect at once. Unless somebody who reached the board by them confirms them in time, the
/// board restores those before the first change that was not confirmed.
///
/// The time is measured by the machine's steady clock. The next start of the daemon uses the
/// rest that was stored last.
class Probation {
public:
    using Clock = std::chrono::steady_clock;

    /// Digits of a revision, which tells one state of a probation from another one.
    static constexpr int REVISION_DIGITS = 16;

    /// How a user reached the board, as the web server tells it.
    struct Reached {
        std::string serverAddress;
        std::string port;
        bool isEncrypted;
        std::string client;
    };

    /// Goes on with a probation of the daemon's previous run. `state` must outlive this.
    explicit Probation(BoardState& state);

    /// The seconds of a probation; 0 when settings do not wait to be confirmed.
    static std::uint32_t readTime(BoardState& state);

    /// Stores items and the event. Those of the network that change begin a probation, or begin
    /// its time anew; one that changes back is no longer on probation.
    void write(StoredItems contents, const Event& event);

    /// The content of ITEM_PROBATION.
    std::string read();

    /// Ends the probation with the new settings. Throws PException: ERROR_NOT_FOUND when the
    /// revision is not the present one, ERROR_NOT_REACHED when the user did not reach the board by
    /// the new settings.
    void confirm(const std::string& revision, const Reached& reached, const std::string& user);

    /// Ends the probation with the settings of before. Throws as confirm().
    void undo(const std::string& revision, const std::string& user);

    /// When proceed() is due.
    Clock::time_point getDeadline() const;

    /// Goes back to the settings of before when it is time, and stores the rest now and then.
    /// Throws DatabaseError, and is then due again later.
    void proceed();

    /// Stores the rest of the time, for the daemon's next start.
    void storeRest();

private:
    /// The settings of before, by their items; empty without a probation.
    struct Kept {
        int rest = 0;
        StoredItems before;
    };

    /// What a confirmation has to fit: each a text, or empty where any will do.
    struct Needed {
        std::string address;
        std::string ports[2];  ///< of HTTP and HTTPS; "off" when the service was turned off
        bool isClientListed = false;
    };

    static std::optional<Kept> parse(const std::string& content);
    static std::string format(const Kept& kept);
    std::optional<Kept> find();
    Kept load();
    Kept require(const std::string& revision);
    void noteChange(Kept& kept, std::uint32_t item, const std::string& content, bool isOn);
    Needed findNeeded(const Kept& kept);
    std::string makeRevision(const Kept& kept);
    bool isListed(const std::string& client);
    bool fits(const Kept& kept, const Reached& reached);
    void end(const Kept& kept, StoredItems contents, EventCode code, const std::string& user);
    int getRest() const;
    void begin(std::chrono::seconds time);
    void stop();

    BoardState& m_state;
    Clock::time_point m_end = Clock::time_point::max();  ///< when it expires
    Clock::time_point m_nextStore = Clock::time_point::max();
};

}  // namespace ORVLib::Board
