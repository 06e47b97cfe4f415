#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "IpcServer.h"
#include "MessageStream.h"
#include "common/FileDescriptor.h"
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
const std::string LONGEST(MAX_PAYLOAD_SIZE, 'x');

void sleepMs(int ms) {
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

std::string read(int socket, std::size_t size) {
    std::string bytes(size, '\0');
    const ssize_t count = ::recv(socket, bytes.data(), size, MSG_WAITALL);
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

void awaitEnd(int socket) {
    while (!read(socket, 1).empty()) {
    }
}

/// Sends until the client has hung up.
void write(int socket, const std::string& bytes, int pauseMs = 0) {
    const std::size_t step = pauseMs == 0 ? bytes.size() : 1;
    for (std::size_t at = 0; at < bytes.size(); at += step) {
        if (::send(socket, bytes.data() + at, step, MSG_NOSIGNAL) < 0) {
            return;
        }
        sleepMs(pauseMs);
    }
}

/// A peer that does what a test says with the connection of the client.
class IPCClientTest : public testing::Test {
protected:
    using Script = std::function<void(int socket)>;

    IPCClientTest() {
        setenv("ORV_IPC_SOCKET", m_path.c_str(), 1);
        setenv("ORV_IPC_TIMEOUT_MS", "200", 1);
    }
    ~IPCClientTest() override {
        ::unlink((m_path + ".lock").c_str());
        unsetenv("ORV_IPC_SOCKET");
        unsetenv("ORV_IPC_TIMEOUT_MS");
    }

    static std::unique_ptr<IPCConnection> connect() {
        return std::unique_ptr<IPCConnection>(IPCClient::getNewConnection(0x201, 0x202));
    }

    /// Runs `operation` on a connection and `script` on its other end.
    template <typename Operation>
    void serve(const Script& script, Operation operation) {
        auto connection = connect();
        FileDescriptor socket = m_server->accept();
        ::fcntl(socket.get(), F_SETFL, 0);
        std::thread peer([&] {
            script(socket.get());
            socket.close();
        });
        operation(*connection);
        connection.reset();
        peer.join();
    }

    const std::string m_path = "/tmp/ipc" + std::to_string(::getpid());
    std::unique_ptr<IpcServer> m_server = std::make_unique<IpcServer>(m_path);
};

// 0 when the operation threw nothing.
unsigned int detailOf(const std::function<void()>& operation) {
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

/// Interrupts the system calls of the test, which runs on the main thread, all the time.
class Interruptions {
public:
    Interruptions() {
        struct sigaction action {};
        action.sa_handler = [](int) {};
        sigaction(SIGALRM, &action, nullptr);
        interruptEvery({0, 3000});
    }
    ~Interruptions() { interruptEvery({}); }
    Interruptions(const Interruptions&) = delete;
    Interruptions& operator=(const Interruptions&) = delete;

private:
    static void interruptEvery(timeval interval) {
        const itimerval timer{interval, interval};
        setitimer(ITIMER_REAL, &timer, nullptr);
    }
};

TEST_F(IPCClientTest, FramesWhatItSends) {
    std::string seen;
    serve([&](int socket) { seen = read(socket, EMPTY_AND_HELLO.size()); },
          [](IPCConnection& connection) {
              connection.sendRequest(NEGATIVE_TYPE, nullptr, 0);
              connection.sendRequest(TYPE, "hello", 5);
              for (const int size : {-1, MAX_PAYLOAD_SIZE + 1}) {
                  EXPECT_EQ(detailOf([&] { connection.sendRequest(TYPE, "x", size); }), 1026U);
              }
              EXPECT_EQ(detailOf([&] { connection.sendRequest(TYPE, nullptr, 1); }), 1026U);
          });
    EXPECT_EQ(seen, EMPTY_AND_HELLO);
}

TEST_F(IPCClientTest, PutsMessagesTogetherFromPieces) {
    const Interruptions interruptions;
    const auto dripping = [](int socket) {
        write(socket, EMPTY_AND_HELLO + HELLO, 2);
        awaitEnd(socket);
    };
    serve(dripping, [](IPCConnection& connection) {
        expectMessage(connection, NEGATIVE_TYPE, "");
        EXPECT_EQ(connection.getNextRequestSize(true), 5);
        EXPECT_EQ(connection.getNextRequestSize(false), 5);
        expectMessage(connection, TYPE, "hello");
        expectMessage(connection, TYPE, "hello");
        EXPECT_EQ(connection.getNextRequestSize(false), 0);
    });
}

TEST_F(IPCClientTest, CarriesTheLongestMessageBothWays) {
    const Interruptions interruptions;
    const auto echo = [](int socket) {
        sleepMs(50);  // the client's socket is full by now
        write(socket, read(socket, 8 + LONGEST.size()));
    };
    serve(echo, [](IPCConnection& connection) {
        connection.sendRequest(TYPE, LONGEST.data(), MAX_PAYLOAD_SIZE);
        expectMessage(connection, TYPE, LONGEST);
    });
}

TEST_F(IPCClientTest, RefusesMessagesThatAreCutDamagedOrTooLong) {
    setenv("ORV_IPC_TIMEOUT_MS", "5000", 1);
    std::vector<std::string> refused = {message(TYPE, "longer")};
    for (const unsigned int length : {MAX_PAYLOAD_SIZE + 1U, 0x7fffffffU, 0x80000000U, ~0U}) {
        refused.push_back(word(TYPE) + word(length) + "hello");
    }
    for (std::size_t sent = 0; sent < HELLO.size(); ++sent) {
        refused.push_back(HELLO.substr(0, sent));
    }
    for (const std::string& bytes : refused) {
        serve([&](int socket) { write(socket, bytes); },
              [](IPCConnection& connection) {
                  const auto exact = std::make_unique<char[]>(5);
                  int type = 0;
                  const auto receive = [&] { connection.receiveRequest(type, exact.get(), 5); };
                  EXPECT_EQ(detailOf(receive), 1026U);
                  EXPECT_EQ(type, 0);
                  EXPECT_EQ(std::string(exact.get(), 5), "\0\0\0\0\0"s);
              });
    }
}

TEST_F(IPCClientTest, SeesAPeerThatGoesAway) {
    const auto connection = connect();
    m_server->accept();
    EXPECT_EQ(detailOf([&] { connection->getNextRequestSize(false); }), 1026U);
    EXPECT_EQ(detailOf([&] { connection->sendRequest(TYPE, "hello", 5); }), 1026U);
}

// A limit of 200 ms; a byte now and then does not prolong it.
TEST_F(IPCClientTest, DoesNotWaitForEver) {
    const Script dripping = [](int socket) { write(socket, HELLO.substr(0, 12), 100); };
    const Script deaf = [](int) { sleepMs(400); };
    const auto send = [](IPCConnection& connection) {
        connection.sendRequest(TYPE, LONGEST.data(), MAX_PAYLOAD_SIZE);
    };
    const auto peek = [](IPCConnection& connection) { connection.getNextRequestSize(true); };
    const auto take = [](IPCConnection& connection) {
        char buffer[5];
        int type = 0;
        connection.receiveRequest(type, buffer, sizeof buffer);
    };
    struct Case {
        Script script;
        std::function<void(IPCConnection&)> operation;
    };
    for (const Case& each : {Case{awaitEnd, peek}, Case{awaitEnd, take}, Case{dripping, peek},
                             Case{dripping, take}, Case{deaf, send}}) {
        serve(each.script, [&](IPCConnection& connection) {
            const Interruptions interruptions;
            const auto begin = Clock::now();
            EXPECT_EQ(detailOf([&] { each.operation(connection); }), 1029U);
            EXPECT_GE(Clock::now() - begin, std::chrono::milliseconds(199));
            EXPECT_LT(Clock::now() - begin, std::chrono::milliseconds(900));
        });
    }
}

TEST_F(IPCClientTest, ReportsADaemonThatIsNotThere) {
    EXPECT_NE(connect(), nullptr);
    m_server.reset();
    EXPECT_EQ(detailOf(connect), 1025U);
    setenv("ORV_IPC_SOCKET", std::string(200, 'x').c_str(), 1);
    EXPECT_EQ(detailOf(connect), 1025U);
}

TEST_F(IPCClientTest, ReportsADaemonThatHangsBeforeItAccepts) {
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
