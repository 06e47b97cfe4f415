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

/// The client of the board's back-end daemon. Every operation is one exchange on a connection of
/// its own.
///
/// Operations return 1 on success. On failure they return 0, leave their output arguments
/// unchanged, write a trace entry and store the error for getErrorDetail() and getActionCode().
/// They do not throw for a failed exchange.
///
/// @code
/// constexpr unsigned int ITEM_OWN_REFRESH_INTERVAL = 0x02010027;
/// CGIRequester requester("the session ID from the cookie");
/// const ORVUi::PrimitiveTypeWrapper<long> seconds(60);
/// if (requester.setInfo(ITEM_OWN_REFRESH_INTERVAL + ITEM_WRITE, seconds) == 0) {
///     std::cout << "failed with error " << requester.getErrorDetail();
/// }
/// @endcode
class ORVGUI_EXPORT CGIRequester {
public:
    /// Characters of a session ID that are sent.
    static constexpr int SESSION_ID_LENGTH = 31;

    /// A requester without a session.
    CGIRequester();

    /// A requester for a session, as setSessionId().
    explicit CGIRequester(const char* sessionId);
    ~CGIRequester();
    CGIRequester(const CGIRequester&) = delete;
    CGIRequester& operator=(const CGIRequester&) = delete;

    /// The session of every later request, cut after SESSION_ID_LENGTH characters. Null and an
    /// empty text mean none.
    void setSessionId(const char* sessionId);
    std::string getSessionId() const;

    /// The language of the session's user, or the board's own without a session.
    unsigned int getLanguage(int& language);

    /// Opens a session and stores its ID, for the cookie, in `sessionId` and the user's language in
    /// `language`. `user` and `password` are cut after 32 bytes, `client`, the address that the
    /// user logs in from, after 128. The requester's own session does not change.
    unsigned int login(const std::string& user, const std::string& password,
                       const std::string& client, int& language, std::string& sessionId);

    /// Ends the session.
    unsigned int logout();

    /// Asks whether the session is valid, and stores the user's language, refresh interval (in
    /// seconds, 0 for none) and rights. `authority` may be null. `option` is passed to the daemon:
    /// see AbstractMain::guiCheckLogin().
    unsigned int checkSession(int& language, unsigned int& refreshInterval, CGIAuthority* authority,
                              bool option);

    /// Reads language, rights and raw data of the session's user.
    /// REQUIRES: `out` is null or has space for everything that the daemon sends.
    unsigned int getUserInfo(int& language, CGIAuthority& authority, void* out);

    /// Reads the item `id` as raw bytes; numbers in them are big-endian. Prefer the forms below.
    /// REQUIRES: `out` is null or has space for everything that the daemon sends.
    int getInfo(unsigned int id, void* out);

    /// Reads an item of exactly `size` bytes. An answer of another size is a failure.
    /// If `out` is null, the answer's content is not read.
    int getInfo(unsigned int id, void* out, unsigned int size);

    /// Reads an item into `out`. Returns 1 even when out.setSerialized() refuses the answer: check
    /// the content of `out`.
    int getInfo(unsigned int id, SerializableObject& out);

    /// Sends `in` and reads the answer into `out`, for items that are queried with content. The
    /// size that is sent is the low 16 bits of the serialised size, as in every operation that
    /// sends data.
    int getInfo(unsigned int id, const SerializableObject& in, SerializableObject& out);
    int getInfo(unsigned int id, SerializableObject& in, SerializableObject& out) {
        return getInfo(id, static_cast<const SerializableObject&>(in), out);
    }

    /// The same exchange as getInfo() with `in` and `out`. Use it where the daemon carries out an
    /// operation.
    int callTransaction(unsigned int id, const SerializableObject& in, SerializableObject& out);
    int callTransaction(unsigned int id, SerializableObject& in, SerializableObject& out) {
        return callTransaction(id, static_cast<const SerializableObject&>(in), out);
    }

    /// Writes an item. `id` is the item's ID plus ITEM_WRITE.
    unsigned int setInfo(unsigned int id, const SerializableObject& in);
    unsigned int setInfo(unsigned int id, SerializableObject& in) {
        return setInfo(id, static_cast<const SerializableObject&>(in));
    }

    /// As above, with the `length` bytes at `data`; only the low 16 bits of `length` count. Null
    /// is a failure unless they are 0.
    unsigned int setInfo(unsigned int id, unsigned int length, const void* data);

    /// The exception detail of the last operation. 0 when it succeeded, or when it failed with an
    /// exception of the daemon that could not be read.
    unsigned int getErrorDetail() const { return m_errorDetail; }

    /// The action code of the last operation, 0 when it succeeded.
    unsigned char getActionCode() const { return m_actionCode; }

    /// Writes bytes to the trace log in hexadecimal, at the level of protocol traces, for
    /// debugging. Null writes nothing.
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
