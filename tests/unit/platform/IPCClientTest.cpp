#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
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
#include "orv/PException.h"

namespace ORVLib::ORVIpc {

namespace {

using namespace std::string_literals;
using Clock = std::chrono::steady_clock;

constexpr int TYPE = 0x02010005;
const std::string HELLO =
    "\x02\x01\x00\x05"
    "\0\0\0\5"
    "hello"s;

/// A peer that does what a test says with the connection of the client.
class IPCClientTest : public testing::Test {
protected:
    using Script = std::function<void(int socket)>;

    void SetUp() override {
        char folder[] = "/tmp/ipcXXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        m_folder = folder;
        m_path = m_folder + "/s";
        setenv("ORV_IPC_SOCKET", m_path.c_str(), 1);
        setenv("ORV_IPC_TIMEOUT_MS", "200", 1);
        m_server = std::make_unique<IpcServer>(m_path);
    }

    void TearDown() override {
        if (m_peer.joinable()) {
            m_peer.join();
        }
        m_server.reset();
        ::unlink((m_path + ".lock").c_str());
        ::rmdir(m_folder.c_str());
        unsetenv("ORV_IPC_SOCKET");
        unsetenv("ORV_IPC_TIMEOUT_MS");
    }

    static std::unique_ptr<IPCConnection> connect() {
        return std::unique_ptr<IPCConnection>(IPCClient::getNewConnection(0x201, 0x202));
    }

    std::unique_ptr<IPCConnection> connectTo(const Script& script) {
        auto connection = connect();
        const auto socket = std::make_shared<FileDescriptor>(m_server->accept());
        ::fcntl(socket->get(), F_SETFL, 0);
        m_peer = std::thread([socket, script] {
            script(socket->get());
            socket->close();
        });
        return connection;
    }

    std::unique_ptr<IPCConnection> connectToSender(const std::string& bytes) {
        return connectTo([bytes](int socket) { write(socket, bytes); });
    }

    static void write(int socket, const std::string& bytes) {
        EXPECT_EQ(::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(bytes.size()));
    }

    static std::string read(int socket, std::size_t size) {
        std::string bytes(size, '\0');
        const ssize_t count = ::recv(socket, bytes.data(), size, MSG_WAITALL);
        bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return bytes;
    }

    // Returns when the client has hung up.
    static void awaitEnd(int socket) {
        while (!read(socket, 1).empty()) {
        }
    }

    std::string m_folder;
    std::string m_path;
    std::unique_ptr<IpcServer> m_server;
    std::thread m_peer;
};

void sleepMs(int ms) {
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

// 0 when the operation threw nothing.
unsigned int detailOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const PException& exception) {
        return exception.getExceptionDetail();
    }
    return 0;
}

std::string receive(IPCConnection& connection, int& type) {
    std::string payload(static_cast<std::size_t>(connection.getNextRequestSize(true)), '\0');
    const int size = static_cast<int>(payload.size());
    EXPECT_EQ(connection.receiveRequest(type, payload.data(), size), size);
    return payload;
}

int countDescriptors() {
    int count = 0;
    for (int descriptor = 0; descriptor < 256; ++descriptor) {
        count += ::fcntl(descriptor, F_GETFD) != -1 ? 1 : 0;
    }
    return count;
}

void ignoreSignal(int /*number*/) {}

/// Interrupts system calls every few milliseconds.
class Interruptions {
public:
    Interruptions() {
        struct sigaction action {};
        action.sa_handler = ignoreSignal;
        sigaction(SIGUSR1, &action, nullptr);
        m_thread = std::thread([this, target = pthread_self()] {
            while (!m_ending) {
                pthread_kill(target, SIGUSR1);
                sleepMs(3);
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

TEST_F(IPCClientTest, FramesWhatItSends) {
    std::string seen;
    auto connection = connectTo([&seen](int socket) { seen = read(socket, 8 + 8 + 5); });
    connection->sendRequest(static_cast<int>(0x87ff0001), nullptr, 0);
    connection->sendRequest(TYPE, "hello", 5);
    m_peer.join();
    EXPECT_EQ(seen,
              "\x87\xff\x00\x01"
              "\0\0\0\0"s +
                  HELLO);
    EXPECT_EQ(detailOf([&] { connection->sendRequest(TYPE, "x", -1); }), 1026U);
    EXPECT_EQ(detailOf([&] { connection->sendRequest(TYPE, "x", MAX_PAYLOAD_SIZE + 1); }), 1026U);
    EXPECT_EQ(detailOf([&] { connection->sendRequest(TYPE, nullptr, 1); }), 1026U);
}

TEST_F(IPCClientTest, PutsMessagesTogetherFromPieces) {
    const std::string bytes =
        "\x87\xff\x00\x01"
        "\0\0\0\0"s +
        HELLO + HELLO;
    auto connection = connectTo([bytes](int socket) {
        for (const char byte : bytes) {
            write(socket, std::string(1, byte));
            sleepMs(2);
        }
        awaitEnd(socket);
    });
    const Interruptions interruptions;
    int type = 0;
    EXPECT_EQ(receive(*connection, type), "");
    EXPECT_EQ(type, static_cast<int>(0x87ff0001));
    EXPECT_EQ(connection->getNextRequestSize(true), 5);
    EXPECT_EQ(connection->getNextRequestSize(false), 5);
    EXPECT_EQ(receive(*connection, type), "hello");
    EXPECT_EQ(type, TYPE);
    EXPECT_EQ(receive(*connection, type), "hello");
    EXPECT_EQ(connection->getNextRequestSize(false), 0);
    connection.reset();
}

TEST_F(IPCClientTest, CarriesTheLongestMessageBothWays) {
    const std::string payload(MAX_PAYLOAD_SIZE, 'x');
    auto connection = connectTo([&payload](int socket) {
        sleepMs(50);  // the client's socket is full by now
        const std::string request = read(socket, 8 + payload.size());
        write(socket, request);
    });
    const Interruptions interruptions;
    connection->sendRequest(TYPE, payload.data(), static_cast<int>(payload.size()));
    int type = 0;
    EXPECT_TRUE(receive(*connection, type) == payload);
}

TEST_F(IPCClientTest, SeesAPeerThatGoesAway) {
    for (std::size_t sent = 0; sent < HELLO.size(); ++sent) {
        auto connection = connectToSender(HELLO.substr(0, sent));
        m_peer.join();
        char buffer[5];
        int type = 0;
        EXPECT_EQ(detailOf([&] { connection->receiveRequest(type, buffer, sizeof buffer); }), 1026U)
            << sent;
        EXPECT_EQ(type, 0);
    }
    auto connection = connectToSender("");
    m_peer.join();
    EXPECT_EQ(detailOf([&] { connection->getNextRequestSize(false); }), 1026U);
    EXPECT_EQ(detailOf([&] { connection->sendRequest(TYPE, "hello", 5); }), 1026U);
}

TEST_F(IPCClientTest, RefusesLengthsThatNoMessageHas) {
    for (const std::string& length : {"\x00\x10\x00\x01"s, "\x40\0\0\0"s, "\x7f\xff\xff\xff"s,
                                      "\xff\xff\xff\xff"s, "\x80\0\0\0"s}) {
        auto connection = connectToSender("\x02\x01\x00\x05"s + length + "hello");
        m_peer.join();
        char buffer[5];
        int type = 0;
        EXPECT_EQ(detailOf([&] { connection->getNextRequestSize(true); }), 1026U);
        EXPECT_EQ(detailOf([&] { connection->receiveRequest(type, buffer, sizeof buffer); }),
                  1026U);
    }
}

TEST_F(IPCClientTest, NeverWritesPastTheBuffer) {
    auto connection = connectToSender(HELLO);
    int type = 0;
    const auto exact = std::make_unique<char[]>(4);
    EXPECT_EQ(detailOf([&] { connection->receiveRequest(type, exact.get(), 4); }), 1026U);
    EXPECT_EQ(type, 0);
    EXPECT_EQ(std::string(exact.get(), 4), "\0\0\0\0"s);
}

// A limit of 200 ms; a byte now and then does not prolong it.
TEST_F(IPCClientTest, DoesNotWaitForEver) {
    const Script silent = awaitEnd;
    const Script dripping = [](int socket) {
        for (const char byte : HELLO.substr(0, 12)) {
            if (::send(socket, &byte, 1, MSG_NOSIGNAL) != 1) {
                return;  // the client gave up
            }
            sleepMs(100);
        }
    };
    const std::string payload(MAX_PAYLOAD_SIZE, 'x');
    const auto send = [&payload](IPCConnection& connection) {
        connection.sendRequest(TYPE, payload.data(), static_cast<int>(payload.size()));
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
    const Script deaf = [](int) { sleepMs(400); };
    for (const Case& each :
         {Case{silent, peek}, {silent, take}, {dripping, peek}, {dripping, take}, {deaf, send}}) {
        auto connection = connectTo(each.script);
        const Interruptions interruptions;
        const auto begin = Clock::now();
        EXPECT_EQ(detailOf([&] { each.operation(*connection); }), 1029U);
        EXPECT_GE(Clock::now() - begin, std::chrono::milliseconds(199));
        EXPECT_LT(Clock::now() - begin, std::chrono::milliseconds(900));
        connection.reset();
        m_peer.join();
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
    std::vector<std::unique_ptr<IPCConnection>> waiting;
    const Interruptions interruptions;
    EXPECT_EQ(detailOf([&] {
                  while (waiting.size() < 1000) {
                      waiting.push_back(connect());
                  }
              }),
              1029U);
}

TEST_F(IPCClientTest, LeavesNoDescriptorBehind) {
    const int before = countDescriptors();
    for (int i = 0; i < 100; ++i) {
        auto connection = connect();
        m_server->accept();
        EXPECT_EQ(detailOf([&] { connection->getNextRequestSize(true); }), 1026U);
    }
    m_server.reset();
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(detailOf(connect), 1025U);
    }
    EXPECT_LE(countDescriptors(), before);
}

}  // namespace

}  // namespace ORVLib::ORVIpc
