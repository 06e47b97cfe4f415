#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "backend/Telegram.h"
#include "base/Hex.h"
#include "base/Log.h"
#include "common/ByteOrder.h"
#include "common/ErrorCode.h"
#include "common/MakeException.h"
#include "gui/BackendNumbers.h"
#include "gui/CGIRequester.h"
#include "orv/ORVIpc.h"

// The steps of one exchange with the daemon; the operations made of them are in CGIRequester.cpp.
// A step that fails while receiving closes the connection. An exception of the connection while
// sending leaves it open until the next exchange.

namespace ORVLib::Gui {

namespace {

constexpr int CLIENT_ENDPOINT = 0x201;
constexpr int DAEMON_ENDPOINT = 0x202;

constexpr ExceptionOrigin ORIGIN{Log::CATEGORY, Log::SUB_CATEGORY, Log::REQUESTER, 2};

PException nullPointer(const char* where, const char* pointer) {
    return makeException(ORIGIN, ErrorCode::OUT_OF_PROTOCOL, LogText::NULL_POINTER, where, pointer);
}

PException wrongType(const char* where, int type) {
    return makeException(ORIGIN, ErrorCode::OUT_OF_PROTOCOL, LogText::WRONG_RESPONSE_TYPE, where,
                         type);
}

PException wrongSize(const char* where, int size, int expected) {
    return makeException(ORIGIN, ErrorCode::WRONG_SIZE, LogText::SIZE_MISMATCH, where, size,
                         expected);
}

/// The exception that an error response carries. One that cannot be read is empty.
PException sentException(const unsigned char* data, int size) {
    PException exception;
    exception.setSerialized(data, static_cast<unsigned int>(std::max(size, 0)));
    return exception;
}

constexpr std::size_t LONGEST_TRACE = 128;

const char* flagDigit(bool flag) {
    return flag ? "1" : "0";
}

}  // namespace

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
        fail(nullPointer("CGIRequester::sendRequest()", "data-ptr=nul"));
    }
    m_connection->sendRequest(m_procedureId, data, m_dataLength);
}

/// Sends a request whose payload is the serialised `object`.
void CGIRequester::sendSerialized(const SerializableObject& object) {
    Payload data;
    m_dataLength = Telegram::payloadLength(getSerializedRequest(object, &data));
    sendRequest(data.get());
}

/// Serialises into a new array and returns its size.
unsigned int CGIRequester::getSerializedRequest(const SerializableObject& object,
                                                Payload* outData) {
    const unsigned int size = object.getSerializedSize();
    *outData = std::make_unique<unsigned char[]>(size);
    if (object.getSerialized(outData->get(), size) == 0) {
        throw makeException(ORIGIN, ErrorCode::CANNOT_SERIALIZE, LogText::SERIALIZATION,
                            "CGIRequester::getSerializedRequest()", "SerializableObject");
    }
    return size;
}

void CGIRequester::recieveResponse(void* buffer) {
    recieveResponseHeader();
    if (buffer != nullptr) {
        recieveResponseData(false, buffer, nullptr, nullptr);
    }
    m_connection.reset();
}

void CGIRequester::getResponseToSerObj(int /*id*/, SerializableObject& object) {
    recieveResponseHeader();
    Payload data;
    unsigned int size = 0;
    recieveResponseData(true, nullptr, &data, &size);
    m_connection.reset();
    object.setSerialized(data.get(), size);
}

void CGIRequester::recieveResponseHeader() {
    constexpr char WHERE[] = "CGIRequester::recieveResponseHeader()";
    constexpr char CAUGHT_IN[] = "CGIRequester::recieveResponseHeader";
    if (!m_connection) {
        fail(nullPointer(WHERE, "m_connection=nul"));
    }
    const int size = waitForMessage(CAUGHT_IN);
    if (size <= 0) {
        fail(wrongSize(WHERE, size, TELEGRAM_SIZE));
    }
    const auto buffer = std::make_unique<unsigned char[]>(static_cast<std::size_t>(size));
    int type = 0;
    const int received = callConnection(
        CAUGHT_IN, [&] { return m_connection->receiveRequest(type, buffer.get(), size); });
    if (static_cast<unsigned int>(type) == ERROR_RESPONSE) {
        fail(sentException(buffer.get(), received));
    }
    if (type != m_procedureId) {
        fail(wrongType(WHERE, type));
    }
    if (received < TELEGRAM_SIZE) {
        fail(wrongSize(WHERE, received, TELEGRAM_SIZE));
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
        fail(wrongSize(WHERE, 0, size));
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
        fail(wrongSize(WHERE, received, size));
    }
    if (allocate) {
        *outData = std::move(allocated);
        *outSize = static_cast<unsigned int>(size);
    }
}

/// Receives a payload of exactly `size` bytes.
void CGIRequester::recieveResponseData(void* buffer, unsigned int size) {
    const int announced = waitForMessage("CGIRequester::recieveResponseData");
    if (announced < 0 || static_cast<unsigned int>(announced) != size) {
        fail(wrongSize("CGIRequester::recieveResponseData()", announced, static_cast<int>(size)));
    }
    recieveResponseData(false, buffer, nullptr, nullptr);
}

int CGIRequester::waitForMessage(const char* where) {
    return callConnection(where, [this] { return m_connection->getNextRequestSize(true); });
}

/// Runs one operation of the connection. Logs its exception and throws it again.
template <typename Operation>
int CGIRequester::callConnection(const char* where, Operation operation) {
    try {
        return operation();
    } catch (const PException& e) {
        Log::putText(*m_trace, Log::ERROR_LEVEL, LogText::EXCEPTION_CAUGHT, where, "PException",
                     e.getExceptionDetail());
        fail(e);
    }
}

void CGIRequester::fail(const PException& exception) {
    m_connection.reset();
    throw PException(exception);
}

void CGIRequester::traceTelegram(const char* head, const char* idName, int id,
                                 const unsigned char* telegram) {
    const CGI_AUTHORITY record = Telegram::authority(telegram);
    CGIAuthority authority;
    authority.setAuthority(record);
    std::string text;
    text.reserve(LONGEST_TRACE);
    text.append(head).append(Telegram::sessionId(telegram)).append(idName);
    Hex::append(text, static_cast<unsigned int>(id), 8);
    Hex::append(text.append(" lang="), static_cast<unsigned int>(Telegram::language(telegram)));
    text.append(" admin=").append(flagDigit(authority.isSystemAdmin()));
    text.append(" ce=").append(flagDigit(authority.isTechnicalStaff()));
    text.append(" guset=").append(flagDigit(authority.isGuest()));
    Hex::append(text.append(" part=0x"), record.partitions);
    m_trace->putLog(Log::PROTOCOL_LEVEL, text);
}

}  // namespace ORVLib::Gui
