#include "gui/CGIRequester.h"

#include <string.h>

#include <cstring>

#include "backend/LoginRecord.h"
#include "backend/Telegram.h"
#include "base/Hex.h"
#include "base/Log.h"
#include "common/ByteOrder.h"
#include "gui/BackendNumbers.h"
#include "orv/ORVIpc.h"
#include "orv/PException.h"

// The operations; the steps of an exchange are in CGIRequesterExchange.cpp.

namespace ORVLib::Gui {

namespace {

constexpr std::size_t TRACE_LINE_LENGTH = 90;
constexpr int TRACE_GROUP = 4;

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

/// Runs one exchange. An exception becomes the stored error.
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

void CGIRequester::setErrorInfo(const PException& exception, const char* where) {
    m_errorDetail = exception.getExceptionDetail();
    m_actionCode = exception.getActionCode();
    std::string text = where;
    text.append(" sid=").append(getSessionId()).append(" procId=0x");
    Hex::append(text, static_cast<unsigned int>(m_procedureId), 8);
    m_trace->putLog(Log::ERROR_LEVEL, text);
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
    // Its errors are logged under the name of getInfo(), of which it is a form.
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
        m_dataLength = Telegram::payloadLength(length);
        sendRequest(data);
        recieveResponse(nullptr);
    });
}

void CGIRequester::debugTrace(const unsigned char* data, int length) {
    std::string text;
    for (int i = 0; data != nullptr && i < length; ++i) {
        if (i > 0 && i % TRACE_GROUP == 0) {
            text += ' ';
        }
        text += Hex::DIGITS[data[i] >> 4];
        text += Hex::DIGITS[data[i] & 0xf];
    }
    for (std::size_t start = 0; start < text.size(); start += TRACE_LINE_LENGTH) {
        m_trace->putLog(Log::PROTOCOL_LEVEL, "REQ-DATA:" + text.substr(start, TRACE_LINE_LENGTH));
    }
}

}  // namespace ORVLib::Gui
