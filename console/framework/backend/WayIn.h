#pragma once

#include <string>

namespace Console {

/// How the request reached the board, as the web server tells it.
struct WayIn {
    std::string serverAddress;
    std::string serverPort;
    bool isEncrypted;
    std::string client;  ///< address
    std::string host;    ///< what the browser calls the board, without the port
};

WayIn findWayIn();

/// The address of a page of the board: "http://192.0.2.10:8080/".
std::string makeUrl(bool isEncrypted, const std::string& host, const std::string& port);

}  // namespace Console
