#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "common/ByteOrder.h"
#include "orv/PException.h"

/// A big-endian 32-bit number.
inline std::string word(unsigned int number) {
    unsigned char bytes[4];
    ORVLib::Bytes::write32(bytes, number);
    return {bytes, bytes + 4};
}

inline std::string padded(std::string text, std::size_t size) {
    text.resize(size);
    return text;
}

/// A message as it crosses the socket.
inline std::string message(unsigned int type, const std::string& payload) {
    return word(type) + word(static_cast<unsigned int>(payload.size())) + payload;
}

inline std::string telegram(const std::string& sessionId, char language, unsigned int roles = 0,
                            unsigned int partitions = 0) {
    return word(0) + padded(sessionId, 32) + std::string(3, '\0') + language + word(roles) +
           word(partitions);
}

inline std::string errorResponse(const ORVLib::PException& exception) {
    std::string payload(exception.getSerializedSize(), '\0');
    exception.getSerialized(reinterpret_cast<unsigned char*>(payload.data()),
                            exception.getSerializedSize());
    return message(0x87ff0001, payload);
}

/// A daemon that says what a test wants, whatever it is asked, on the socket that the library
/// connects to while the object lives.
class ScriptedDaemon {
public:
    ScriptedDaemon() {
        char folder[] = "/tmp/daemonXXXXXX";
        m_folder = mkdtemp(folder);
        const std::string path = m_folder + "/s";
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, path.c_str(), path.size());
        m_listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (bind(m_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
            listen(m_listener, 8) != 0) {
            std::abort();
        }
        setenv("ORV_IPC_SOCKET", path.c_str(), 1);
        setenv("ORV_IPC_TIMEOUT_MS", "2000", 1);
    }
    ~ScriptedDaemon() {
        close(m_listener);
        std::filesystem::remove_all(m_folder);
        unsetenv("ORV_IPC_SOCKET");
        unsetenv("ORV_IPC_TIMEOUT_MS");
    }
    ScriptedDaemon(const ScriptedDaemon&) = delete;
    ScriptedDaemon& operator=(const ScriptedDaemon&) = delete;

    /// When not zero, a response comes byte by byte with this pause after each.
    std::chrono::milliseconds pause{0};

    /// What a script does once it has sent its response.
    enum Then { KEEP_OPEN, HANG_UP };

    /// Runs `operation` while one connection after the other is answered with the next of
    /// `responses`. Returns the bytes of each until the library closed it.
    template <typename Operation>
    std::vector<std::string> serve(const std::vector<std::string>& responses, Operation operation,
                                   Then then = KEEP_OPEN) {
        std::vector<std::string> requests;
        std::thread daemon([&] {
            for (const std::string& response : responses) {
                pollfd ready{m_listener, POLLIN, 0};
                if (poll(&ready, 1, 3000) != 1) {
                    return;
                }
                requests.push_back(
                    answer(accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC), response, then));
            }
        });
        operation();
        daemon.join();
        return requests;
    }

private:
    std::string answer(int client, const std::string& response, Then then) const {
        const std::size_t piece = pause.count() > 0 ? 1 : response.size();
        for (std::size_t at = 0; at < response.size(); at += piece) {
            if (send(client, &response[at], piece, MSG_NOSIGNAL) < 0) {
                break;  // the library has given up
            }
            std::this_thread::sleep_for(pause);
        }
        if (then == HANG_UP) {
            shutdown(client, SHUT_WR);
        }
        std::string request;
        char block[4096];
        for (ssize_t n = 0; (n = read(client, block, sizeof block)) > 0;) {
            request.append(block, static_cast<std::size_t>(n));
        }
        close(client);
        return request;
    }

    std::string m_folder;
    int m_listener;
};
