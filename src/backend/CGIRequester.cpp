#include "gui/CGIRequester.h"

#include <string.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "backend/Telegram.h"
#include "base/Log.h"
#include "common/ByteOrder.h"
#include "gui/BackendNumbers.h"
#include "orv/ORVIpc.h"
#include "orv/PException.h"

namespace ORVLib::Gui {

namespace {

constexpr int CLIENT_ENDPOINT = 0x201;
constexpr int DAEMON_ENDPOINT = 0x202;

// Only so many bits of a payload's size are sent.
constexpr unsigned int LENGTH_MASK = 0xffff;

constexpr std::size_t TRACE_LINE_LENGTH = 90;
constexpr int TRACE_GROUP = 4;

// The action code and the details of the requester's own exceptions.
constexpr int ACTION_CODE = 2;
enum Detail { CANNOT_SERIALIZE = 0x401, OUT_OF_PROTOCOL = 0x402, WRONG_SIZE = 0x404 };

PException exchangeException(Detail detail, Log::LogText text, const char* where,
                             const PException::Argument& what,
                             const PException::Argument& expected = 0) {
    return PException(Log::CATEGORY, Log::SUB_CATEGORY, Log::REQUESTER, ACTION_CODE, detail, text,
                      where, what, expected, 0, 0, 0, 0, 0);
}

/// The payload of a login.
class LoginRecord {
public:
    LoginRecord(const std::string& user, const std::string& password, const std::string& client) {
        copy(user, 0, 32);
        copy(password, 36, 32);
        copy(client, 72, 128);
    }
    ~LoginRecord() { explicit_bzero(m_bytes, sizeof m_bytes); }
    LoginRecord(const LoginRecord&) = delete;
    LoginRecord& operator=(const LoginRecord&) = delete;

    static constexpr int SIZE = 204;
    const unsigned char* data() const { return m_bytes; }

private:
    void copy(const std::string& text, std::size_t offset, std::size_t limit) {
        std::memcpy(m_bytes + offset, text.data(), strnlen(text.c_str(), limit));
    }

    unsigned char m_bytes[SIZE] = {};
};

}  // namespace

CGIRequester::CGIRequester() {
    init();
}

CGIRequester::CGIRequester(const char* sessionId) {
    init();
    setSessionId(sessionId);
}

CGIRequester::~CGIRequester() = default;

void CGIRequester::init() {
    m_trace = std::make_unique<trace::OrvTrace>(Log::writer(Log::REQUESTER));
    std::memset(m_request, 0, sizeof m_request);
    std::memset(m_response, 0, sizeof m_response);
}

void CGIRequester::setSessionId(const char* sessionId) {
    unsigned char* const field = m_request + Telegram::SESSION_ID;
    std::memset(field, 0, Telegram::SESSION_ID_SIZE);
    if (sessionId != nullptr) {
        std::memcpy(field, sessionId, strnlen(sessionId, SESSION_ID_LENGTH));
    }
}

std::string CGIRequester::getSessionId() const {
    return Telegram::sessionId(m_request);
}

void CGIRequester::resetTelegram() {
    const std::string sessionId = getSessionId();
    std::memset(m_request, 0, sizeof m_request);
    std::memset(m_response, 0, sizeof m_response);
    setSessionId(sessionId.c_str());
    m_procedureId = 0;
    m_dataLength = 0;
    m_errorDetail = 0;
    m_actionCode = 0;
}

// The exchange, step by step. Every step that fails while receiving closes the connection.

void CGIRequester::sendRequest(const void* data) {
    m_connection.reset();
    m_connection.reset(ORVIpc::IPCClient::getNewConnection(CLIENT_ENDPOINT, DAEMON_ENDPOINT));
    Bytes::write32(m_request + Telegram::PROCESS_ID, static_cast<std::int32_t>(getpid()));
    m_connection->sendRequest(m_procedureId, m_request, TELEGRAM_SIZE);
    traceTelegram("REQ-SEND:SID=", " PorcID=0x", m_procedureId, m_request);
    if (m_dataLength <= 0) {
        return;
    }
    if (data == nullptr) {
        fail(exchangeException(OUT_OF_PROTOCOL, Log::NULL_POINTER, "CGIRequester::sendRequest()",
                               "data-ptr=nul"));
    }
    m_connection->sendRequest(m_procedureId, data, m_dataLength);
}

void CGIRequester::recieveResponseHeader() {
    constexpr char WHERE[] = "CGIRequester::recieveResponseHeader()";
    constexpr char CAUGHT_IN[] = "CGIRequester::recieveResponseHeader";
    if (!m_connection) {
        fail(exchangeException(OUT_OF_PROTOCOL, Log::NULL_POINTER, WHERE, "m_connection=nul"));
    }
    const int size = waitForMessage(CAUGHT_IN);
    if (size <= 0) {
        fail(exchangeException(WRONG_SIZE, Log::SIZE_MISMATCH, WHERE, size, TELEGRAM_SIZE));
    }
    const auto buffer = std::make_unique<unsigned char[]>(static_cast<std::size_t>(size));
    int type = 0;
    const int received = callConnection(
        CAUGHT_IN, [&] { return m_connection->receiveRequest(type, buffer.get(), size); });
    if (static_cast<unsigned int>(type) == ERROR_RESPONSE) {
        PException sent;
        sent.setSerialized(buffer.get(), static_cast<unsigned int>(std::max(received, 0)));
        fail(sent);
    }
    if (type != m_procedureId) {
        fail(exchangeException(OUT_OF_PROTOCOL, Log::WRONG_RESPONSE_TYPE, WHERE, type));
    }
    if (received < TELEGRAM_SIZE) {
        fail(exchangeException(WRONG_SIZE, Log::SIZE_MISMATCH, WHERE, received, TELEGRAM_SIZE));
    }
    std::memcpy(m_response, buffer.get(), TELEGRAM_SIZE);
    traceTelegram("REQ-RECV:SID=", " ResponseID=0x", type, m_response);
}

/// Receives the payload into `buffer`, which the caller guarantees to be large enough, or with
/// `allocate` into a new array.
void CGIRequester::recieveResponseData(bool allocate, void* buffer, Payload* outData,
                                       unsigned int* outSize) {
    constexpr char WHERE[] = "CGIRequester::recieveResponseData()";
    constexpr char CAUGHT_IN[] = "CGIRequester::recieveResponseData";
    const int size = waitForMessage(CAUGHT_IN);
    if (size < 0 || (allocate && size == 0)) {
        fail(exchangeException(WRONG_SIZE, Log::SIZE_MISMATCH, WHERE, 0, size));
    }
    Payload allocated;
    if (allocate) {
        allocated = std::make_unique<unsigned char[]>(static_cast<std::size_t>(size));
        buffer = allocated.get();
    }
    int type = 0;
    const int received =
        callConnection(CAUGHT_IN, [&] { return m_connection->receiveRequest(type, buffer, size); });
    if (received != size) {
        fail(exchangeException(WRONG_SIZE, Log::SIZE_MISMATCH, WHERE, received, size));
    }
    if (allocate) {
        *outData = std::move(allocated);
        *outSize = static_cast<unsigned int>(size);
    }
}

/// Receives a payload that must have exactly `size` bytes.
void CGIRequester::recieveResponseData(void* buffer, unsigned int size) {
    const int announced = waitForMessage("CGIRequester::recieveResponseData");
    if (announced < 0 || static_cast<unsigned int>(announced) != size) {
        fail(exchangeException(WRONG_SIZE, Log::SIZE_MISMATCH,
                               "CGIRequester::recieveResponseData()", announced,
                               static_cast<int>(size)));
    }
    recieveResponseData(false, buffer, nullptr, nullptr);
}

void CGIRequester::recieveResponse(void* buffer) {
    recieveResponseHeader();
    if (buffer != nullptr) {
        recieveResponseData(false, buffer, nullptr, nullptr);
    }
    m_connection.reset();
}

/// Serialises into a new array and returns its size.
unsigned int CGIRequester::getSerializedRequest(const SerializableObject& object,
                                                Payload* outData) {
    const unsigned int size = object.getSerializedSize();
    *outData = std::make_unique<unsigned char[]>(size);
    if (object.getSerialized(outData->get(), size) == 0) {
        throw exchangeException(CANNOT_SERIALIZE, Log::SERIALIZATION,
                                "CGIRequester::getSerializedRequest()", "SerializableObject");
    }
    return size;
}

void CGIRequester::getResponseToSerObj(int /*id*/, SerializableObject& object) {
    recieveResponseHeader();
    Payload data;
    unsigned int size = 0;
    recieveResponseData(true, nullptr, &data, &size);
    m_connection.reset();
    object.setSerialized(data.get(), size);
}

void CGIRequester::setErrorInfo(const PException& exception, const char* where) {
    m_errorDetail = exception.getExceptionDetail();
    m_actionCode = exception.getActionCode();
    char procedure[sizeof " procId=0x" + 8];
    std::snprintf(procedure, sizeof procedure, " procId=0x%8x",
                  static_cast<unsigned int>(m_procedureId));
    m_trace->putLog(Log::ERROR_LEVEL, std::string(where) + " sid=" + getSessionId() + procedure);
}

void CGIRequester::fail(const PException& exception) {
    m_connection.reset();
    throw PException(exception);
}

/// Runs one operation of the connection; what it throws is logged and thrown on.
template <typename Operation>
int CGIRequester::callConnection(const char* where, Operation operation) {
    try {
        return operation();
    } catch (const PException& e) {
        Log::putText(*m_trace, Log::ERROR_LEVEL, Log::EXCEPTION_CAUGHT, where, "PException",
                     e.getExceptionDetail());
        fail(e);
    }
}

int CGIRequester::waitForMessage(const char* where) {
    return callConnection(where, [this] { return m_connection->getNextRequestSize(true); });
}

void CGIRequester::traceTelegram(const char* head, const char* idName, int id,
                                 const unsigned char* telegram) {
    const CGI_AUTHORITY record = Telegram::authority(telegram);
    CGIAuthority authority;
    authority.setAuthority(record);
    char fields[128];
    std::snprintf(fields, sizeof fields, "%s%8x lang=%x admin=%x ce=%x guset=%x part=0x%x", idName,
                  static_cast<unsigned int>(id),
                  static_cast<unsigned int>(Telegram::language(telegram)),
                  authority.isSystemAdmin() ? 1U : 0U, authority.isTechnicalStaff() ? 1U : 0U,
                  authority.isGuest() ? 1U : 0U, record.partitions);
    m_trace->putLog(Log::PROTOCOL_LEVEL, head + Telegram::sessionId(telegram) + fields);
}

// The operations.

/// Runs one exchange; its exceptions become the stored error.
template <typename Exchange>
unsigned int CGIRequester::perform(unsigned int procedureId, const char* where, Exchange exchange) {
    resetTelegram();
    m_procedureId = static_cast<int>(procedureId);
    try {
        exchange();
        return 1;
    } catch (const PException& e) {
        setErrorInfo(e, where);
        return 0;
    }
}

/// Sends a request whose payload is the serialised `object`.
void CGIRequester::sendSerialized(const SerializableObject& object) {
    Payload data;
    m_dataLength = static_cast<int>(getSerializedRequest(object, &data) & LENGTH_MASK);
    sendRequest(data.get());
}

unsigned int CGIRequester::getLanguage(int& language) {
    return perform(PROCEDURE_GET_LANGUAGE, "CGIRequester::getLanguage", [&] {
        sendRequest(nullptr);
        recieveResponse(nullptr);
        language = Telegram::language(m_response);
    });
}

unsigned int CGIRequester::login(const std::string& user, const std::string& password,
                                 const std::string& client, int& language, std::string& sessionId) {
    return perform(PROCEDURE_LOGIN, "CGIRequester::login", [&] {
        const LoginRecord record(user, password, client);
        m_dataLength = LoginRecord::SIZE;
        sendRequest(record.data());
        recieveResponse(nullptr);
        language = Telegram::language(m_response);
        sessionId = Telegram::sessionId(m_response);
    });
}

unsigned int CGIRequester::logout() {
    return perform(PROCEDURE_LOGOUT, "CGIRequester::logout", [&] {
        sendRequest(nullptr);
        recieveResponse(nullptr);
    });
}

unsigned int CGIRequester::checkSession(int& language, unsigned int& refreshInterval,
                                        CGIAuthority* authority, bool option) {
    return perform(PROCEDURE_CHECK_SESSION, "CGIRequester::checkSession", [&] {
        CGIAuthority every;
        every.setAllAuthority();
        Telegram::setAuthority(m_request, every);
        const unsigned char payload = option ? 1 : 0;
        m_dataLength = sizeof payload;
        sendRequest(&payload);
        unsigned char interval[4];
        recieveResponseHeader();
        recieveResponseData(interval, sizeof interval);
        m_connection.reset();
        language = Telegram::language(m_response);
        refreshInterval = Bytes::read32(interval);
        if (authority != nullptr) {
            authority->setAuthority(Telegram::authority(m_response));
        }
    });
}

unsigned int CGIRequester::getUserInfo(int& language, CGIAuthority& authority, void* out) {
    // Logged under the name of the operation it is a form of.
    return perform(PROCEDURE_GET_USER_INFO, "CGIRequester::getInfo", [&] {
        sendRequest(nullptr);
        recieveResponse(out);
        authority.setAuthority(Telegram::authority(m_response));
        language = Telegram::language(m_response);
    });
}

int CGIRequester::getInfo(unsigned int id, void* out) {
    return static_cast<int>(perform(id, "CGIRequester::getInfo", [&] {
        sendRequest(nullptr);
        recieveResponse(out);
    }));
}

int CGIRequester::getInfo(unsigned int id, void* out, unsigned int size) {
    return static_cast<int>(perform(id, "CGIRequester::getInfo", [&] {
        sendRequest(nullptr);
        recieveResponseHeader();
        if (out != nullptr) {
            recieveResponseData(out, size);
        }
        m_connection.reset();
    }));
}

int CGIRequester::getInfo(unsigned int id, SerializableObject& out) {
    return static_cast<int>(perform(id, "CGIRequester::getInfo", [&] {
        sendRequest(nullptr);
        getResponseToSerObj(m_procedureId, out);
    }));
}

int CGIRequester::getInfo(unsigned int id, const SerializableObject& in, SerializableObject& out) {
    return static_cast<int>(perform(id, "CGIRequester::getInfo", [&] {
        sendSerialized(in);
        getResponseToSerObj(m_procedureId, out);
    }));
}

int CGIRequester::callTransaction(unsigned int id, const SerializableObject& in,
                                  SerializableObject& out) {
    return getInfo(id, in, out);
}

unsigned int CGIRequester::setInfo(unsigned int id, const SerializableObject& in) {
    return perform(id, "CGIRequester::setInfo", [&] {
        sendSerialized(in);
        recieveResponse(nullptr);
    });
}

unsigned int CGIRequester::setInfo(unsigned int id, unsigned int length, const void* data) {
    return perform(id, "CGIRequester::setInfo", [&] {
        m_dataLength = static_cast<int>(length & LENGTH_MASK);
        sendRequest(data);
        recieveResponse(nullptr);
    });
}

void CGIRequester::debugTrace(const unsigned char* data, int length) {
    constexpr char DIGITS[] = "0123456789ABCDEF";
    std::string text;
    for (int i = 0; data != nullptr && i < length; ++i) {
        if (i > 0 && i % TRACE_GROUP == 0) {
            text += ' ';
        }
        text += DIGITS[data[i] >> 4];
        text += DIGITS[data[i] & 0xf];
    }
    for (std::size_t start = 0; start < text.size(); start += TRACE_LINE_LENGTH) {
        m_trace->putLog(Log::PROTOCOL_LEVEL, "REQ-DATA:" + text.substr(start, TRACE_LINE_LENGTH));
    }
}

}  // namespace ORVLib::Gui
