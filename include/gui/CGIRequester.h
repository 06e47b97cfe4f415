#pragma once

#include <memory>
#include <string>

#include "gui/CGIAuthority.h"
#include "gui/Export.h"
#include "orv/SerializableObject.h"

namespace ORVLib {
class PException;
namespace ORVIpc {
class IPCConnection;
}
namespace trace {
class OrvTrace;
}
}  // namespace ORVLib

namespace ORVLib::Gui {

/// The client of the board's back-end daemon. Every operation is one exchange over a connection of
/// its own.
///
/// Operations return 1 on success. On failure they return 0, leave what they would have filled
/// untouched, write a trace entry and keep the error for getErrorDetail() and getActionCode().
class ORVGUI_EXPORT CGIRequester {
public:
    /// Characters of a session ID that count.
    static constexpr int SESSION_ID_LENGTH = 31;

    CGIRequester();

    /// See setSessionId().
    explicit CGIRequester(const char* sessionId);
    ~CGIRequester();
    CGIRequester(const CGIRequester&) = delete;
    CGIRequester& operator=(const CGIRequester&) = delete;

    /// The session every later request belongs to; cut after SESSION_ID_LENGTH characters. Null and
    /// an empty text mean none.
    void setSessionId(const char* sessionId);
    std::string getSessionId() const;

    /// The language of the session's user, or the board's own without a session.
    unsigned int getLanguage(int& language);

    /// Opens a session. `user` and `password` count up to 32 bytes, `client`, which says where the
    /// user comes from, up to 128. `sessionId` is what a cookie then carries; the requester's own
    /// session stays as it was.
    unsigned int login(const std::string& user, const std::string& password,
                       const std::string& client, int& language, std::string& sessionId);

    /// Ends the session.
    unsigned int logout();

    /// Asks whether the session is valid. `refreshInterval` is in seconds, 0 for none; `authority`
    /// may be null. `option` is passed on to the daemon.
    unsigned int checkSession(int& language, unsigned int& refreshInterval, CGIAuthority* authority,
                              bool option);

    /// The session's user. REQUIRES: `out` is null or holds all that the daemon sends.
    unsigned int getUserInfo(int& language, CGIAuthority& authority, void* out);

    /// Reads the information item `id` as raw bytes; numbers in them are big-endian.
    /// REQUIRES: `out` is null or holds all that the daemon sends. Prefer the forms below.
    int getInfo(unsigned int id, void* out);

    /// Reads an item of exactly `size` bytes; an answer of another size is a failure.
    /// Null leaves the answer unread.
    int getInfo(unsigned int id, void* out, unsigned int size);

    /// Reads an item into `out`. What came is not looked at: 1 says that there was an answer, not
    /// that `out` could make sense of it.
    int getInfo(unsigned int id, SerializableObject& out);

    /// Sends `in` along and reads the answer into `out`. What `in` serialises to is cut to the low
    /// 16 bits of its size, as with every operation that sends data.
    int getInfo(unsigned int id, const SerializableObject& in, SerializableObject& out);
    int getInfo(unsigned int id, SerializableObject& in, SerializableObject& out) {
        return getInfo(id, static_cast<const SerializableObject&>(in), out);
    }

    /// As getInfo() with `in` and `out`, for operations that do something.
    int callTransaction(unsigned int id, const SerializableObject& in, SerializableObject& out);
    int callTransaction(unsigned int id, SerializableObject& in, SerializableObject& out) {
        return callTransaction(id, static_cast<const SerializableObject&>(in), out);
    }

    /// Writes the item `id`.
    unsigned int setInfo(unsigned int id, const SerializableObject& in);
    unsigned int setInfo(unsigned int id, SerializableObject& in) {
        return setInfo(id, static_cast<const SerializableObject&>(in));
    }

    /// Writes the item `id` from the first `length`, cut to its low 16 bits, bytes at `data`. Null
    /// is a failure unless that length is 0.
    unsigned int setInfo(unsigned int id, unsigned int length, const void* data);

    /// The exception detail of the last operation, 0 when it succeeded, and when the daemon's
    /// exception could not be read.
    unsigned int getErrorDetail() const { return m_errorDetail; }

    /// The action code of the last operation, 0 when it succeeded.
    unsigned char getActionCode() const { return m_actionCode; }

    /// Writes bytes to the trace log in hexadecimal, for programs that look for a fault.
    /// Null writes nothing.
    void debugTrace(const unsigned char* data, int length);

private:
    using Payload = std::unique_ptr<unsigned char[]>;

    static constexpr int TELEGRAM_SIZE = 48;

    void init();
    void resetTelegram();
    void sendRequest(const void* data);
    void recieveResponseHeader();
    void recieveResponseData(bool allocate, void* buffer, Payload* outData, unsigned int* outSize);
    void recieveResponseData(void* buffer, unsigned int size);
    void recieveResponse(void* buffer);
    unsigned int getSerializedRequest(const SerializableObject& object, Payload* outData);
    void getResponseToSerObj(int id, SerializableObject& object);
    void setErrorInfo(const PException& exception, const char* where);

    template <typename Exchange>
    unsigned int perform(unsigned int procedureId, const char* where, Exchange exchange);
    template <typename Operation>
    int callConnection(const char* where, Operation operation);
    [[noreturn]] void fail(const PException& exception);
    int waitForMessage(const char* where);
    void sendSerialized(const SerializableObject& object);
    void traceTelegram(const char* head, const char* idName, int id, const unsigned char* telegram);

    std::unique_ptr<trace::OrvTrace> m_trace;
    std::unique_ptr<ORVIpc::IPCConnection> m_connection;
    unsigned char m_request[TELEGRAM_SIZE];
    unsigned char m_response[TELEGRAM_SIZE];
    int m_procedureId = 0;
    int m_dataLength = 0;
    unsigned int m_errorDetail = 0;
    unsigned char m_actionCode = 0;
};

}  // namespace ORVLib::Gui
