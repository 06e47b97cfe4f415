// A command-line client of the back-end daemon, built on the library's requester as a page is.

#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "common/Hex.h"
#include "gui/CGIAuthority.h"
#include "gui/CGIRequester.h"
#include "orv/CommonUtil.h"
#include "protocol/Items.h"
#include "protocol/Layouts.h"
#include "protocol/Payload.h"
#include "protocol/Record.h"

namespace {

using ORVLib::Gui::CGIAuthority;
using ORVLib::Gui::CGIRequester;
using namespace ORVLib::Protocol;

constexpr int EXIT_USAGE = 2;

constexpr char USAGE[] =
    "usage: boardctl COMMAND\n"
    "  login USER          open a session and print its ID; the password comes from the terminal,\n"
    "                      or from the first line of standard input\n"
    "  check SID           check a session, without extending it: refresh interval, language and\n"
    "                      rights\n"
    "  language            print the board's default language\n"
    "  user SID            print the session's user: language and rights\n"
    "  get SID ID          print an item as hexadecimal bytes; ID such as 0x02010073\n"
    "  set SID ID BYTES    write an item; BYTES in hexadecimal\n"
    "  events SID          print the newest events: number, time, severity, source, code, user,\n"
    "                      detail\n"
    "  users SID           print the users: name, role, partitions, language\n"
    "  sessions SID        print the open sessions: user, role, address, log-in time, last use\n"
    "  logout SID          end the session\n"
    "Exit status: 0 success; 1 the daemon refused or cannot be reached; 2 wrong usage.\n";

class UsageError {};

/// The terminal's settings before the echo was turned off, for a signal handler.
termios shownTerminal;

extern "C" void restoreTerminal(int signal) {
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &shownTerminal);
    raise(signal);  // delivered, by now with its default effect, when the handler returns
}

/// Turns the terminal's echo off while the object exists.
class EchoOff {
public:
    EchoOff() : m_terminal(tcgetattr(STDIN_FILENO, &shownTerminal) == 0) {
        if (m_terminal) {
            struct sigaction action {};
            action.sa_handler = restoreTerminal;
            action.sa_flags = static_cast<int>(SA_RESETHAND);
            for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
                sigaction(signal, &action, nullptr);
            }
            termios silent = shownTerminal;
            silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
        }
    }
    ~EchoOff() {
        if (m_terminal) {
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &shownTerminal);
        }
    }
    EchoOff(const EchoOff&) = delete;
    EchoOff& operator=(const EchoOff&) = delete;

    bool isTerminal() const { return m_terminal; }

private:
    bool m_terminal;
};

/// The requester would cut off the rest, and ask for something else.
const std::string& requireShort(const std::string& text, std::size_t longest, const char* name) {
    if (text.size() > longest || text.find('\0') != std::string::npos) {
        std::cerr << "boardctl: a " << name << " has at most " << longest << " bytes, none zero\n";
        throw UsageError();
    }
    return text;
}

std::string readPassword() {
    const EchoOff silence;
    if (silence.isTerminal()) {
        std::cerr << "Password: ";
    }
    std::string password;
    if (!std::getline(std::cin, password)) {
        std::cerr << "boardctl: no password came from standard input\n";
        throw UsageError();
    }
    if (silence.isTerminal()) {
        std::cerr << '\n';
    }
    return requireShort(password, MAX_PASSWORD_LENGTH, "password");
}

unsigned int itemId(const std::string& text) {
    char* end = nullptr;
    errno = 0;
    const unsigned long long id = std::strtoull(text.c_str(), &end, 0);
    if (text.empty() || text[0] == '-' || *end != '\0' || errno != 0 || id > 0xffffffffU ||
        (id & ACCESS_MASK) != 0) {
        std::cerr << "boardctl: " << text << " is no item ID: give one such as 0x02010073\n";
        throw UsageError();
    }
    return static_cast<unsigned int>(id);
}

std::string hexBytes(std::string digits) {
    std::transform(digits.begin(), digits.end(), digits.begin(), [](char digit) {
        return digit >= 'A' && digit <= 'F' ? static_cast<char>(digit - 'A' + 'a') : digit;
    });
    const auto bytes = ORVLib::parseHex(digits);
    if (!bytes || bytes->empty() || bytes->size() > MAX_PAYLOAD_SIZE) {
        std::cerr << "boardctl: BYTES are pairs of hexadecimal digits, up to " << MAX_PAYLOAD_SIZE
                  << " bytes\n";
        throw UsageError();
    }
    return *bytes;
}

/// Prints a record that is a list of rows, one line a row.
void printRows(const Payload& item, std::size_t columns) {
    std::size_t texts = 0;
    for (const char byte : item.getBytes()) {
        if (byte != '\0') {
            std::cout << byte;
        } else if (item.getBytes().size() > 1) {  // a single NUL is a list without rows
            std::cout << (++texts % columns == 0 ? '\n' : '\t');
        }
    }
}

void printUser(int language, const CGIAuthority& authority) {
    std::cout << "language: " << language << "\nrights:";
    const std::pair<bool, const char*> roles[] = {
        {authority.isSystemAdmin(), " system-administrator"},
        {authority.isTechnicalStaff(), " technical-staff"},
        {authority.isGuest(), " guest"},
        {authority.isOperator(), " operator"},
    };
    for (const auto& [held, name] : roles) {
        std::cout << (held ? name : "");
    }
    for (int partition = 0; partition < ORVLib::ORVUi::CommonUtil::getMaxPartitionNum();
         ++partition) {
        if (authority.isPartitionAdmin(partition)) {
            std::cout << " partition-" << partition;
        }
    }
    std::cout << '\n';
}

/// The commands. Each returns true when the daemon executed the request.
class Command {
public:
    explicit Command(std::vector<std::string> words) : m_words(std::move(words)) {}

    bool run() {
        struct Entry {
            const char* name;
            std::size_t words;
            bool (Command::*run)();
        };
        constexpr Entry ENTRIES[] = {
            {"login", 2, &Command::login},       {"check", 2, &Command::check},
            {"language", 1, &Command::language}, {"user", 2, &Command::user},
            {"get", 3, &Command::get},           {"set", 4, &Command::set},
            {"events", 2, &Command::events},     {"users", 2, &Command::users},
            {"sessions", 2, &Command::sessions}, {"logout", 2, &Command::logout},
        };
        for (const Entry& entry : ENTRIES) {
            if (m_words[0] == entry.name && m_words.size() == entry.words) {
                return (this->*entry.run)();
            }
        }
        throw UsageError();
    }

    const CGIRequester& requester() const { return m_requester; }

private:
    /// The requester, in the session that the command names.
    CGIRequester& session() {
        m_requester.setSessionId(
            requireShort(m_words[1], MAX_SESSION_ID_LENGTH, "session").c_str());
        return m_requester;
    }

    bool login() {
        int language = 0;
        std::string sessionId;
        const std::string& user = requireShort(m_words[1], MAX_NAME_LENGTH, "user");
        if (m_requester.login(user, readPassword(), "boardctl", language, sessionId) == 0) {
            return false;
        }
        std::cout << sessionId << '\n';
        return true;
    }

    bool check() {
        int language = 0;
        unsigned int interval = 0;
        CGIAuthority authority;
        const bool renews = false;  // a look at the session must not prolong it
        if (session().checkSession(language, interval, &authority, !renews) == 0) {
            return false;
        }
        std::cout << "refresh: " << interval << " s\n";
        printUser(language, authority);
        return true;
    }

    bool language() {
        int language = 0;
        if (m_requester.getLanguage(language) == 0) {
            return false;
        }
        std::cout << language << '\n';
        return true;
    }

    bool user() {
        int language = 0;
        CGIAuthority authority;
        if (session().getUserInfo(language, authority, nullptr) == 0) {
            return false;
        }
        printUser(language, authority);
        return true;
    }

    bool get() {
        const unsigned int id = itemId(m_words[2]);
        Payload item;
        if (session().getInfo(id, item) == 0) {
            return false;
        }
        std::cout << ORVLib::formatHex(item.getBytes()) << '\n';
        return true;
    }

    bool set() {
        const unsigned int id = itemId(m_words[2]);
        return session().setInfo(id | ACCESS_WRITE, Payload(hexBytes(m_words[3]))) != 0;
    }

    bool events() {
        Payload rows;
        if (session().getInfo(ITEM_EVENTS | ACCESS_EXCHANGE,
                              Payload(formatRecord({"info", "", "", "", "200", ""})), rows) == 0) {
            return false;
        }
        printRows(rows, 7);
        return true;
    }

    bool users() { return list(ITEM_USERS, 4); }
    bool sessions() { return list(ITEM_SESSIONS, 5); }

    bool list(unsigned int id, std::size_t columns) {
        Payload rows;
        if (session().getInfo(id, rows) == 0) {
            return false;
        }
        printRows(rows, columns);
        return true;
    }

    bool logout() { return session().logout() != 0; }

    std::vector<std::string> m_words;
    CGIRequester m_requester;
};

int report(const CGIRequester& requester) {
    std::cerr << "boardctl: the daemon refused or cannot be reached: error "
              << requester.getErrorDetail() << ", action code "
              << static_cast<int>(requester.getActionCode()) << '\n';
    return EXIT_FAILURE;
}

int finishOutput() {
    if (!std::cout.flush()) {
        std::cerr << "boardctl: cannot write to standard output\n";
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 1 && words[0] == "--help") {
        std::cout << USAGE;
        return finishOutput();
    }
    try {
        if (words.empty()) {
            throw UsageError();
        }
        Command command(words);
        return command.run() ? finishOutput() : report(command.requester());
    } catch (const UsageError&) {
        std::cerr << USAGE;
        return EXIT_USAGE;
    }
}
