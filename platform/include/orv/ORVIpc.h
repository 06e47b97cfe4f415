#pragma once

/// The board's IPC: typed messages between a page and the back-end daemon.
///
/// A message has a type and a payload. The messages of a connection arrive whole and in the order
/// in which they were sent. Every failure is thrown as a PException. No operation waits for ever:
/// when the peer is absent, silent or slow, or breaks the connection, an exception is thrown within
/// the implementation's time limit. The operator messages distinguish these exception details:
///
///     1025  the daemon cannot be reached
///     1026  the connection broke, or the data on it is not a message
///     1029  the time limit passed
///
/// @code
/// const std::unique_ptr<ORVIpc::IPCConnection> connection(
///     ORVIpc::IPCClient::getNewConnection(0x201, 0x202));
/// connection->sendRequest(0x02010001, "request", 7);
/// const int size = connection->getNextRequestSize(true);
/// std::vector<char> answer(static_cast<std::size_t>(size));
/// int type = 0;
/// connection->receiveRequest(type, answer.data(), size);
/// @endcode
namespace ORVLib::ORVIpc {

/// One connection to the daemon. Deleting it closes the connection.
class IPCConnection {
public:
    virtual ~IPCConnection() = default;

    /// Sends one message. `data` may be null when `length` is 0.
    virtual void sendRequest(int type, const void* data, int length) = 0;

    /// The payload size in bytes of the next message, without receiving it. Waits for the message
    /// if `wait` is true, otherwise returns 0 when none has begun to arrive. A message without
    /// payload has size 0 too.
    virtual int getNextRequestSize(bool wait) = 0;

    /// Waits for the next message, stores its type in `type` and its payload in `buffer`, which has
    /// `size` bytes, and returns the payload's size. For a longer message it throws and changes
    /// neither `type` nor `buffer`.
    virtual int receiveRequest(int& type, void* buffer, int size) = 0;
};

/// Opens connections.
class IPCClient {
public:
    /// Connects the client endpoint to the daemon endpoint. The caller owns the result, which is
    /// not null.
    static IPCConnection* getNewConnection(int clientEndpoint, int daemonEndpoint);
};

}  // namespace ORVLib::ORVIpc
