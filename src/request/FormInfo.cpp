#include "gui/FormInfo.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "base/Hex.h"
#include "base/Log.h"
#include "base/Numbers.h"
#include "common/ByteOrder.h"
#include "common/ErrorCode.h"
#include "common/FileIo.h"
#include "common/MakeException.h"
#include "gui/BackendNumbers.h"
#include "gui/CGIRequester.h"
#include "gui/IPAddressField.h"

// The request as a whole and URL-encoded bodies; multipart bodies are in FormInfoUpload.cpp.

namespace ORVLib::Gui {

namespace {

constexpr std::ptrdiff_t ESCAPE_LENGTH = 3;

constexpr ExceptionOrigin ORIGIN{Log::CATEGORY, Log::SUB_CATEGORY, Log::FORM_INFO, 1};

/// The exception for a body that cannot be read.
PException readException(LogText::Number text, const char* operation, int error) {
    return makeException(ORIGIN, ErrorCode::BODY_UNREADABLE, text, operation, error);
}

/// As getenv(). Writes a trace entry with the text `logged` when the variable is not set.
const char* getenvLogged(const char* name, const char* logged) {
    const char* const value = std::getenv(name);
    if (value == nullptr) {
        Log::putText(Log::FORM_INFO, Log::ERROR_LEVEL, LogText::NOT_AVAILABLE, logged);
    }
    return value;
}

/// The byte of an escape with these two characters. Anything but two hexadecimal digits gives the
/// low byte of the number that strtoul() reads from them: signs and blanks are accepted, and any
/// other character ends the number.
char unescaped(char first, char second) {
    const int high = Hex::valueOf(first);
    const int low = Hex::valueOf(second);
    if (high >= 0 && low >= 0) {
        return static_cast<char>(high << 4 | low);
    }
    const char digits[] = {first, second, '\0'};
    return static_cast<char>(std::strtoul(digits, nullptr, 16) & 0xff);
}

// A field of a short name and value on the heap: what it contains, and some words of the map and of
// the heap. A form of many fields prepares the heap for this many at a time.
constexpr std::size_t FIELD_SIZE = sizeof(FormInfo::FieldMap::value_type) + 6 * sizeof(void*);
constexpr std::size_t FIELDS_PREPARED = 1024;
// glibc maps larger blocks separately and unmaps them when they are freed.
static_assert(FIELDS_PREPARED * FIELD_SIZE < 0x20000);

/// Has the kernel provide the memory at `from` now. A page fault for each page costs twice as much.
/// Kernels before Linux 5.14 refuse the call, which costs only time.
void populate(void* from, std::size_t size) {
    constexpr int POPULATE_WRITE = 23;  // MADV_POPULATE_WRITE, which older headers do not have
    const std::size_t before =
        reinterpret_cast<std::uintptr_t>(from) % static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    madvise(static_cast<char*>(from) - before, size + before, POPULATE_WRITE);
}

/// Populates the memory that the next `size` bytes of small blocks will be allocated from.
void prepareHeap(std::size_t size) {
    const std::unique_ptr<char[]> block(new char[size]);
    populate(block.get(), size);
}

/// The characters that end or change a name or value of a URL-encoded text.
class SpecialCharacters {
public:
    constexpr SpecialCharacters() : m_isSpecial() {
        for (const char character : {'=', '&', '%', '+'}) {
            m_isSpecial[static_cast<unsigned char>(character)] = true;
        }
    }

    /// The first special character in [from, to), or `to`.
    const char* find(const char* from, const char* to) const {
        while (from != to && !m_isSpecial[static_cast<unsigned char>(*from)]) {
            ++from;
        }
        return from;
    }

private:
    bool m_isSpecial[UCHAR_MAX + 1];
};

constexpr SpecialCharacters SPECIAL_CHARACTERS;

/// The names and values of a URL-encoded text, in one pass.
class Tokens {
public:
    explicit Tokens(std::string_view text) : m_next(text.data()), m_end(m_next + text.size()) {}

    /// Takes the next name or value of the pair, still encoded. It is empty when the pair has no
    /// further one, because several "=" count as one.
    std::string_view take() {
        skip('=');
        const char* const start = m_next;
        m_next = SPECIAL_CHARACTERS.find(start, m_end);
        m_isEncoded = m_next != m_end && *m_next != '=' && *m_next != '&';
        while (m_next != m_end && *m_next != '=' && *m_next != '&') {
            m_next = SPECIAL_CHARACTERS.find(m_next + 1, m_end);
        }
        return {start, static_cast<std::size_t>(m_next - start)};
    }

    /// True when the last name or value has characters to decode.
    bool isEncoded() const { return m_isEncoded; }

    /// Goes to the next pair, over the rest of this one. Returns false after the last pair.
    bool nextPair() {
        m_next = std::find(m_next, m_end, '&');
        skip('&');
        return m_next != m_end;
    }

private:
    void skip(char delimiter) {
        while (m_next != m_end && *m_next == delimiter) {
            ++m_next;
        }
    }

    const char* m_next;
    const char* m_end;
    bool m_isEncoded = false;
};

/// As first.compare(second). Most names of a form differ in their first bytes, which are compared
/// as one number.
int compareNames(std::string_view first, std::string_view second) {
    constexpr std::size_t SIZE = 8;
    if (first.size() >= SIZE && second.size() >= SIZE) {
        const auto start = [](std::string_view name) {
            const auto* const bytes = reinterpret_cast<const unsigned char*>(name.data());
            return std::uint64_t{Bytes::read32(bytes)} << 32 | Bytes::read32(bytes + 4);
        };
        if (start(first) != start(second)) {
            return start(first) < start(second) ? -1 : 1;
        }
    }
    return first.compare(second);
}

/// A place in the order of the names: that of the field with a name, or of the next field.
struct Place {
    FormInfo::FieldMap::iterator field;
    bool isTaken;
};

/// The place of `name`. It is searched next to `near` first: fields that are next to each other in
/// a form mostly have similar names.
Place findPlace(FormInfo::FieldMap& fields, FormInfo::FieldMap::iterator near,
                std::string_view name) {
    constexpr int STEPS = 4;
    const auto compare = [&fields, name](FormInfo::FieldMap::iterator field) {
        return field != fields.end() ? compareNames(field->first, name) : 1;
    };
    int order = compare(near);
    for (int step = 0; step < STEPS && order != 0; ++step) {
        if (order < 0) {
            order = compare(++near);
            if (order > 0) {
                return {near, false};
            }
        } else {
            order = near != fields.begin() ? compare(std::prev(near)) : -1;
            if (order < 0) {
                return {near, false};
            }
            --near;
        }
    }
    if (order != 0) {
        near = fields.lower_bound(std::string(name));
        order = compare(near);
    }
    return {near, order == 0};
}

}  // namespace

FormInfo* FormInfo::myInstance = nullptr;

FormInfo::FormInfo() {
    setURLInfo();
    if (!isPostMethod()) {
        if (const char* const query = std::getenv("QUERY_STRING")) {
            tokenize(query);
        }
        return;
    }
    const char* const length = std::getenv("CONTENT_LENGTH");
    if (length == nullptr) {
        return;
    }
    m_contentLength = Numbers::readInt(length);
    if (m_contentLength > LARGEST_BODY_AT_START) {
        m_readSkip = true;
    } else if (m_contentLength > 0) {
        readPostData(m_contentLength);
    }
}

FormInfo::~FormInfo() {
    terminate();
}

bool FormInfo::isPostMethod() const {
    const char* const method = std::getenv("REQUEST_METHOD");
    return method != nullptr && std::strcmp(method, "POST") == 0;
}

bool FormInfo::getFormData(const std::string& name, std::string& value) const {
    const auto field = m_fields.find(name);
    if (field == m_fields.end()) {
        return false;
    }
    value = field->second;
    return true;
}

bool FormInfo::getFormIPAddr(const std::string& name, unsigned char* address) const {
    for (int i = 0; i < IPAddressField::ADDR_BYTE_SIZE; ++i) {
        std::string value;
        if (address == nullptr || !getFormData(name + std::to_string(i), value)) {
            return false;
        }
        address[i] = static_cast<unsigned char>(Numbers::readInt(value.c_str()) & 0xff);
    }
    return true;
}

std::string FormInfo::getQueryString() {
    std::string query;
    const char* separator = "";
    for (const auto& [name, value] : m_fields) {
        query.append(separator).append(name).append("=").append(value);
        separator = "&";
    }
    return query;
}

void FormInfo::readSkipData() {
    const bool skipped = std::exchange(m_readSkip, false);
    const char* const length = std::getenv("CONTENT_LENGTH");
    if (skipped && length != nullptr) {
        readPostData(Numbers::readInt(length));
    }
}

void FormInfo::terminate() {
    m_readBuffer.reset();
    removeTemporaryFile();
}

void FormInfo::setURLInfo() {
    if (const char* const host = getenvLogged("HTTP_HOST", "FormInfo::getenv(HTTP_HOST)")) {
        m_host = host;
    }
    if (const char* const port = getenvLogged("SERVER_PORT", "FormInfo::getenv(SERVER_PORT)")) {
        m_port = port;
    }
}

std::string FormInfo::getURLInfo(CGIRequester& requester) {
    int httpsPort = -1;
    unsigned char answer[4];
    if (requester.getInfo(ITEM_HTTPS_PORT, answer, sizeof answer) != 0) {
        httpsPort = Bytes::readSigned32(answer);
    } else {
        Log::putText(Log::FORM_INFO, Log::ERROR_LEVEL, LogText::NOT_AVAILABLE,
                     "FormInfo::getURLInfo()");
    }
    const char* const scheme = Numbers::readInt(m_port.c_str()) == httpsPort ? "https" : "http";
    return std::string(scheme) + "://" + m_host + ":" + m_port;
}

void FormInfo::readPostData(int length) {
    try {
        m_readBuffer.reset(new char[READ_BUFFER_SIZE + FILE_BLOCK_SIZE]);
        const unsigned int buffered = readToBuffer(nullptr, nullptr, READ_BUFFER_SIZE);
        if (buffered == 0) {
            return;
        }
        const char* const type = std::getenv("CONTENT_TYPE");
        if (type != nullptr &&
            std::strncmp(type, checkStringType.data(), checkStringType.size()) == 0) {
            m_boundary = type + checkStringType.size();
            readMultipart(buffered);
        } else {
            readUrlEncoded(static_cast<unsigned int>(length), buffered);
        }
    } catch (...) {
        terminate();
        throw;
    }
}

/// Moves the bytes [from, to) to the start of the read buffer and adds bytes of the body until
/// it holds `limit`. Returns the number of valid bytes.
unsigned int FormInfo::readToBuffer(const char* from, const char* to, unsigned int limit) {
    const auto kept = static_cast<unsigned int>(to - from);
    if (kept > 0) {
        std::memmove(m_readBuffer.get(), from, kept);
    }
    const unsigned int unread = static_cast<unsigned int>(m_contentLength) - m_bytesRead;
    const unsigned int wanted = std::min(limit - kept, unread);
    unsigned int received = 0;
    while (received < wanted) {
        const ssize_t length =
            readSome(STDIN_FILENO, m_readBuffer.get() + kept + received, wanted - received);
        if (length < 0) {
            throw readException(LogText::SYSTEM_CALL_FAILED, "read", errno);
        }
        if (length == 0) {
            throw readException(LogText::INPUT_ENDED, "FormInfo::readToBuffer: 0 byte read", 0);
        }
        received += static_cast<unsigned int>(length);
    }
    m_bytesRead += wanted;
    return kept + wanted;
}

bool FormInfo::isBodyRead() const {
    return m_bytesRead >= static_cast<unsigned int>(m_contentLength);
}

void FormInfo::readUrlEncoded(unsigned int length, unsigned int buffered) {
    const char* text = m_readBuffer.get();
    std::unique_ptr<char[]> whole;
    if (length > buffered) {
        whole.reset(new char[length]);
        populate(whole.get(), std::min(length, unsigned{LARGEST_BODY_AT_START}));
        std::memcpy(whole.get(), text, buffered);
        // One read for the rest, and the body ends where it ends: the web server passes so long a
        // form from its own file, not from a slow client.
        const ssize_t rest = read(STDIN_FILENO, whole.get() + buffered, length - buffered);
        length = buffered + (rest > 0 ? static_cast<unsigned int>(rest) : 0);
        m_bytesRead = length;
        text = whole.get();
    }
    tokenize({text, strnlen(text, length)});
}

void FormInfo::tokenize(std::string_view text) {
    Tokens tokens(text);
    const auto takeDecoded = [&tokens](std::string& buffer) -> std::string_view {
        const std::string_view token = tokens.take();
        if (!tokens.isEncoded()) {
            return token;
        }
        buffer.assign(token);
        decode(buffer);
        return buffer;
    };
    std::string decodedName;
    std::string decodedValue;
    FieldMap::iterator near = m_fields.end();
    do {
        const std::string_view name = takeDecoded(decodedName);
        if (name.empty()) {
            continue;
        }
        const std::string_view value = takeDecoded(decodedValue);
        const Place place = findPlace(m_fields, near, name);
        near = place.field;
        if (place.isTaken) {
            near->second = value;
        } else {
            near = m_fields.emplace_hint(near, name, value);
            if (m_fields.size() % FIELDS_PREPARED == 0) {
                prepareHeap(FIELDS_PREPARED * FIELD_SIZE);
            }
        }
    } while (tokens.nextPair());
}

void FormInfo::decode(std::string& text) {
    char* out = text.data();
    const char* const end = out + text.size();
    for (const char* in = out; in != end; ++in) {
        if (*in != '%') {
            *out++ = *in == '+' ? ' ' : *in;
            continue;
        }
        if (end - in < ESCAPE_LENGTH) {
            throw std::out_of_range("FormInfo::decode: text ends inside an escape");
        }
        *out++ = unescaped(in[1], in[2]);
        in += ESCAPE_LENGTH - 1;
    }
    text.resize(static_cast<std::size_t>(out - text.data()));
}

}  // namespace ORVLib::Gui
