#pragma once

/// The board's IPC: typed messages between a page and the back-end daemon.
///
/// A message is a type and a payload of bytes. Messages of one connection arrive whole, in the
/// order they were sent. Every failure is a PException, and no operation waits for ever: a peer
/// that is absent, silent, slow or cut off ends in an exception within the implementation's time
/// limit. The exception details the operator's messages know are
///
///     1025  the daemon cannot be reached
///     1026  the connection broke, or what came over it is not a message
///     1029  the time limit passed
namespace ORVLib::ORVIpc {

/// One connection to the daemon. Deleting it closes the connection.
class IPCConnection {
public:
    virtual ~IPCConnection() = default;

    /// Sends one message. `data` may be null when `length` is 0.
    virtual void sendRequest(int type, const void* data, int length) = 0;

    /// The payload bytes of the next message, which stays to be received. Without `wait` the
    /// answer is 0 when none has begun to arrive; a message without payload is 0 too.
    virtual int getNextRequestSize(bool wait) = 0;

    /// Waits for the next message, puts its type into `type` and its payload into `buffer`, which
    /// holds `size` bytes, and returns the payload's bytes. Never writes past `size`: a longer
    /// message is an exception, with `type` and `buffer` untouched.
    virtual int receiveRequest(int& type, void* buffer, int size) = 0;
};

/// What makes connections.
class IPCClient {
public:
    /// Connects the client endpoint to the daemon endpoint. The caller owns the connection.
    static IPCConnection* getNewConnection(int clientEndpoint, int daemonEndpoint);
};

}  // namespace ORVLib::ORVIpc
