#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "MessageStream.h"
#include "orv/ORVIpc.h"
#include "support/ScriptedDaemon.h"

namespace ORVLib::ORVIpc {

namespace {

using namespace std::string_literals;
using Clock = std::chrono::steady_clock;

constexpr int TYPE = 0x02010005;
constexpr int NEGATIVE_TYPE = static_cast<int>(0x87ff0001);
const std::string EMPTY_AND_HELLO =
    "\x87\xff\x00\x01"
    "\0\0\0\0"
    "\x02\x01\x00\x05"
    "\0\0\0\5"
    "hello"s;
const std::string HELLO = EMPTY_AND_HELLO.substr(8);

std::unique_ptr<IPCConnection> connect() {
    return std::unique_ptr<IPCConnection>(IPCClient::getNewConnection(0x201, 0x202));
}

/// The error number an operation ends with, 0 for none.
template <typename Operation>
unsigned int detailOf(Operation operation) {
    try {
        operation();
    } catch (const PException& exception) {
        return exception.getExceptionDetail();
    }
    return 0;
}

void expectMessage(IPCConnection& connection, int expectedType, const std::string& expected) {
    std::string payload(static_cast<std::size_t>(connection.getNextRequestSize(true)), '\0');
    const int size = static_cast<int>(payload.size());
    int type = 0;
    EXPECT_EQ(connection.receiveRequest(type, payload.data(), size), size);
    EXPECT_EQ(type, expectedType);
    EXPECT_TRUE(payload == expected);
}

/// Interrupts the system calls of this thread, and of no other, every few milliseconds.
class Interruptions {
public:
    Interruptions() {
        struct sigaction action {};
        action.sa_handler = [](int) {};
        sigaction(SIGUSR1, &action, nullptr);
        m_thread = std::thread([this, target = pthread_self()] {
            while (!m_ending) {
                pthread_kill(target, SIGUSR1);
                std::this_thread::sleep_for(std::chrono::milliseconds(3));
            }
        });
    }
    ~Interruptions() {
        m_ending = true;
        m_thread.join();
    }
    Interruptions(const Interruptions&) = delete;
    Interruptions& operator=(const Interruptions&) = delete;

private:
    std::atomic<bool> m_ending{false};
    std::thread m_thread;
};

TEST(IPCClient, FramesWhatItSends) {
    ScriptedDaemon daemon;
    const auto seen = daemon.serve({""}, [] {
        const auto connection = connect();
        connection->sendRequest(NEGATIVE_TYPE, nullptr, 0);
        connection->sendRequest(TYPE, "hello", 5);
        for (const int size : {-1, MAX_PAYLOAD_SIZE + 1}) {
            EXPECT_EQ(detailOf([&] { connection->sendRequest(TYPE, "x", size); }), 1026U);
        }
        EXPECT_EQ(detailOf([&] { connection->sendRequest(TYPE, nullptr, 1); }), 1026U);
    });
    EXPECT_EQ(seen[0], EMPTY_AND_HELLO);
}

TEST(IPCClient, PutsMessagesTogetherFromPieces) {
    const Interruptions interruptions;
    ScriptedDaemon daemon;
    daemon.pause = std::chrono::milliseconds(2);
    daemon.serve({EMPTY_AND_HELLO + HELLO}, [] {
        const auto connection = connect();
        expectMessage(*connection, NEGATIVE_TYPE, "");
        EXPECT_EQ(connection->getNextRequestSize(true), 5);
        EXPECT_EQ(connection->getNextRequestSize(false), 5);
        expectMessage(*connection, TYPE, "hello");
        expectMessage(*connection, TYPE, "hello");
        EXPECT_EQ(connection->getNextRequestSize(false), 0);
    });
}

TEST(IPCClient, CarriesTheLongestMessageBothWays) {
    const std::string longest(MAX_PAYLOAD_SIZE, 'x');
    ScriptedDaemon daemon;
    const Interruptions interruptions;
    const auto seen = daemon.serve({message(TYPE, longest)}, [&] {
        const auto connection = connect();
        expectMessage(*connection, TYPE, longest);
        connection->sendRequest(TYPE, longest.data(), MAX_PAYLOAD_SIZE);
    });
    EXPECT_TRUE(seen[0] == message(TYPE, longest));
}

TEST(IPCClient, RefusesMessagesThatAreCutDamagedOrTooLong) {
    std::vector<std::string> refused = {message(TYPE, "longer")};
    for (std::size_t sent = 0; sent < HELLO.size(); ++sent) {
        refused.push_back(HELLO.substr(0, sent));
    }
    ScriptedDaemon daemon;
    for (const unsigned int length : {MAX_PAYLOAD_SIZE + 1U, 0x7fffffffU, 0x80000000U, ~0U}) {
        refused.push_back(word(TYPE) + word(length) + "hello");
        daemon.serve({refused.back()}, [] {
            EXPECT_EQ(detailOf([] { connect()->getNextRequestSize(true); }), 1026U);
        });
    }
    const auto receive = [] {
        const auto connection = connect();
        const auto exact = std::make_unique<char[]>(5);
        int type = 0;
        EXPECT_EQ(detailOf([&] { connection->receiveRequest(type, exact.get(), 5); }), 1026U);
        EXPECT_EQ(type, 0);
        EXPECT_EQ(std::string(exact.get(), 5), "\0\0\0\0\0"s);
    };
    for (const std::string& bytes : refused) {
        daemon.serve({bytes}, receive, ScriptedDaemon::HANG_UP);
    }
}

// The limit is 200 ms for an exchange; a byte now and then does not prolong it.
TEST(IPCClient, DoesNotWaitForEver) {
    const std::string longest(MAX_PAYLOAD_SIZE, 'x');
    const auto send = [&](IPCConnection& peer) {
        peer.sendRequest(TYPE, longest.data(), MAX_PAYLOAD_SIZE);
    };
    const auto peek = [](IPCConnection& peer) { peer.getNextRequestSize(true); };
    const auto take = [](IPCConnection& peer) {
        char buffer[5];
        int type = 0;
        peer.receiveRequest(type, buffer, sizeof buffer);
    };
    const auto expectLimit = [](const std::function<void(IPCConnection&)>& operation) {
        const Interruptions interruptions;
        const auto begin = Clock::now();
        const auto connection = connect();
        EXPECT_EQ(detailOf([&] { operation(*connection); }), 1029U);
        EXPECT_GE(Clock::now() - begin, std::chrono::milliseconds(200));
        EXPECT_LT(Clock::now() - begin, std::chrono::milliseconds(900));
    };
    for (const auto& operation : {std::function<void(IPCConnection&)>(send), {peek}, {take}}) {
        ScriptedDaemon daemon;
        setenv("ORV_IPC_TIMEOUT_MS", "200", 1);
        expectLimit(operation);  // nobody accepts
        daemon.pause = std::chrono::milliseconds(100);
        daemon.serve({"", HELLO.substr(0, 12)}, [&] { expectLimit(operation); });
    }
}

TEST(IPCClient, ReportsADaemonThatHangsBeforeItAccepts) {
    const ScriptedDaemon hanging;
    setenv("ORV_IPC_TIMEOUT_MS", "200", 1);
    const Interruptions interruptions;
    std::vector<std::unique_ptr<IPCConnection>> waiting;
    const auto connectMany = [&] {
        while (waiting.size() < 1000) {
            waiting.push_back(connect());
        }
    };
    EXPECT_EQ(detailOf(connectMany), 1029U);
}

}  // namespace

}  // namespace ORVLib::ORVIpc
