#include <sys/time.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/Log.h"
#include "common/FileDescriptor.h"
#include "common/FileIo.h"
#include "gui/FormInfo.h"
#include "request/MarkerSearch.h"
#include "request/UploadGuard.h"

// Multipart bodies: parsed part by part in the read buffer, from which the bytes of a file are
// written.

namespace ORVLib::Gui {

namespace {

constexpr char TEMPORARY_FILE_PREFIX[] = "/var/tmp/tmp_";

// Bytes that are read after a block, for the start of the next one.
constexpr unsigned int SLACK = 4096;

constexpr std::string_view LINE_END = "\r\n";
constexpr std::string_view DASHES = "--";
constexpr std::string_view LAST_PART_END = "--\r\n";

char* findBytes(char* from, char* to, std::string_view pattern) {
    return static_cast<char*>(
        memmem(from, static_cast<std::size_t>(to - from), pattern.data(), pattern.size()));
}

/// True when the bytes [from, to) start with `pattern`.
bool startsWith(const char* from, const char* to, std::string_view pattern) {
    return static_cast<std::size_t>(to - from) >= pattern.size() &&
           std::memcmp(from, pattern.data(), pattern.size()) == 0;
}

void putLog(Log::Level level, const char* text) {
    trace::OrvTrace trace = Log::writer(Log::FORM_INFO);
    trace.putLog(level, text);
}

std::string temporaryName() {
    timeval now{};
    gettimeofday(&now, nullptr);
    char name[sizeof TEMPORARY_FILE_PREFIX + 48];
    std::snprintf(name, sizeof name, "%s%ld%ld", TEMPORARY_FILE_PREFIX,
                  static_cast<long>(now.tv_sec), static_cast<long>(now.tv_usec));
    return name;
}

}  // namespace

void FormInfo::readMultipart(unsigned int buffered) {
    char* part = m_readBuffer.get();
    while (part != nullptr) {
        part = setUploadedFileInfo(part, buffered);
    }
}

/// Takes the first part that starts in the `length` bytes at `from`. Returns the end of the part
/// and puts the number of bytes from there into `length`. Returns null when no further part can be
/// read.
char* FormInfo::setUploadedFileInfo(char* from, unsigned int& length) {
    char* to = from + length;
    char* const headers = getNextBlock(from, to);
    if (headers == nullptr) {
        return nullptr;
    }
    std::string fieldName;
    char* const body = skipHeaders(setFileName(headers, to, fieldName), to);
    if (body == nullptr) {
        return nullptr;
    }
    char* end = fieldName.empty() ? receiveFile(body, to) : receiveField(body, to, fieldName);
    if (end == nullptr) {
        return nullptr;
    }
    topUpBuffer(end, to);
    length = static_cast<unsigned int>(to - end);
    return end;
}

/// The start of the next part's headers, or null.
char* FormInfo::getNextBlock(char* from, char* to) const {
    const std::string marker = m_boundary + std::string(LINE_END);
    char* const block = findBytes(from, to, marker);
    return block != nullptr ? block + marker.size() : nullptr;
}

/// Looks for the marker that ends a file's part. Returns true with its position in `end`, or false
/// with the position of the first byte that may belong to a marker not yet wholly in the buffer.
bool FormInfo::getBlockEnd(char* from, char* to, char** end) const {
    const std::string marker = std::string(LINE_END).append(DASHES).append(m_boundary);
    const std::ptrdiff_t nextPartSize =
        static_cast<std::ptrdiff_t>(marker.size() + LINE_END.size());
    if (to - from < nextPartSize) {
        putLog(Log::PROTOCOL_LEVEL, "FormInfo::getBlockEnd() Data too short.");
        *end = to;
        return true;
    }
    const MarkerSearch search(marker);
    for (*end = search.find(from, to); *end != nullptr; *end = search.find(*end + 1, to)) {
        const char* const tail = *end + marker.size();
        if (startsWith(tail, to, LINE_END) || startsWith(tail, to, LAST_PART_END)) {
            return true;
        }
        // The marker of the last part is the longer one: its final byte may still be unread.
        if (to - tail == 3 && startsWith(tail, to, LAST_PART_END.substr(0, 3))) {
            return false;
        }
    }
    *end = to - nextPartSize;
    return false;
}

/// Reads the header line with the name of a part. Puts the name of a field into `fieldName`, which
/// remains empty for a file and for a part without a name. Returns the start of the next line, or
/// null when the part does not begin with that header.
char* FormInfo::setFileName(char* from, char* to, std::string& fieldName) {
    char* const next = startsWith(from, to, checkStringForm) ? getNextLine(from, to) : nullptr;
    std::string line(next != nullptr ? from : "");
    if (line.size() <= checkStringForm.size()) {
        return nullptr;
    }
    line.pop_back();  // the closing quote
    const std::size_t file = line.find(checkStringFile);
    if (file == std::string::npos) {
        fieldName = line.substr(checkStringForm.size());
        return next;
    }
    const std::string path = line.substr(file + checkStringFile.size());
    const std::size_t folderEnd = path.find_last_of("\\/");
    if (folderEnd != std::string::npos) {
        m_uploadedFileName = path.substr(folderEnd + 1);
    } else if (m_uploadedFileName.empty()) {
        m_uploadedFileName = path;
    }
    return next;
}

/// Ends the line at `from` with a NUL in place of its CR LF and returns the start of the next, or
/// null when no byte follows the line.
char* FormInfo::getNextLine(char* from, char* to) {
    char* const end = findBytes(from, to, LINE_END);
    if (end == nullptr || to - end <= static_cast<std::ptrdiff_t>(LINE_END.size())) {
        return nullptr;
    }
    *end = '\0';
    return end + LINE_END.size();
}

/// The start of the part's body, after the blank line that ends the headers from `line` on.
char* FormInfo::skipHeaders(char* line, char* to) {
    while (line != nullptr && !startsWith(line, to, LINE_END)) {
        line = getNextLine(line, to);
    }
    return line != nullptr ? getNextLine(line, to) : nullptr;
}

/// Keeps the first line of a field's body, up to its first NUL byte. A field that is too large for
/// the buffer ends the parsing, as every malformed part does.
char* FormInfo::receiveField(char* from, char* to, const std::string& fieldName) {
    char* const end = getNextLine(from, to);
    if (end != nullptr) {
        m_fields[fieldName] = from;
    }
    return end;
}

/// Writes a file's part while it is read, in whole blocks. Returns the end of the part.
char* FormInfo::receiveFile(char* from, char*& to) {
    FileDescriptor file = createTemporaryFile();
    if (!file.isOpen()) {
        return nullptr;
    }
    char* end = from;  // no marker begins in [from, end), which is not yet written
    bool found = false;
    // Enough for a block, a marker after it, and a piece of the next block.
    const auto enough = static_cast<unsigned int>(FILE_BLOCK_SIZE + m_boundary.size() + SLACK);
    do {
        const auto searched = static_cast<unsigned int>(end - from);
        topUpBuffer(from, to, std::min(searched + READ_BUFFER_SIZE, enough));
        found = getBlockEnd(from + searched, to, &end);
        const auto unwritten = static_cast<unsigned int>(end - from);
        if (unwritten >= FILE_BLOCK_SIZE || found || isBodyRead()) {
            const bool more = !found && !isBodyRead();
            const unsigned int length = more ? FILE_BLOCK_SIZE : unwritten;
            writeFile(file, from, length);
            from += length;
        }
    } while (!found && !isBodyRead());
    if (!found) {
        putLog(Log::ERROR_LEVEL, "FormInfo::setUploadedFileInfo() Nomore data");
    }
    closeFile(file);
    return end;
}

/// Moves [from, to) to the start of the buffer and fills it up to `limit`, unless the whole body
/// has been read.
void FormInfo::topUpBuffer(char*& from, char*& to, unsigned int limit) {
    if (!isBodyRead()) {
        const unsigned int length = readToBuffer(from, to, limit);
        from = m_readBuffer.get();
        to = from + length;
    }
}

/// Makes a new, empty file for an upload. Deletes the file of an earlier one, whose path is
/// overwritten.
FileDescriptor FormInfo::createTemporaryFile() {
    removeTemporaryFile();
    std::string path;
    FileDescriptor file(UploadGuard::create(temporaryName, path));
    if (file.isOpen()) {
        m_temporaryFilePath = path;
    } else {
        Log::putText(Log::FORM_INFO, Log::ERROR_LEVEL, LogText::CANNOT_OPEN,
                     "FormInfo::setUploadedFileInfo", path.c_str());
    }
    return file;
}

/// Writes as much as the limit allows. A failed write deletes the file, and the rest of the upload
/// is dropped.
void FormInfo::writeFile(FileDescriptor& file, const char* data, unsigned int length) {
    length = std::min(length, LARGEST_UPLOAD - m_bytesWritten);
    if (!file.isOpen()) {
        return;
    }
    if (writeAll(file.get(), {data, length})) {
        m_bytesWritten += length;
    } else {
        abandonFile(file, "write");
    }
}

void FormInfo::closeFile(FileDescriptor& file) {
    if (!file.close()) {
        abandonFile(file, "close");
    }
}

void FormInfo::abandonFile(FileDescriptor& file, const char* operation) {
    Log::putText(Log::FORM_INFO, Log::ERROR_LEVEL, LogText::SYSTEM_CALL_FAILED, operation, errno);
    file.close();
    removeTemporaryFile();
}

void FormInfo::removeTemporaryFile() {
    m_bytesWritten = 0;
    if (m_temporaryFilePath.empty()) {
        return;
    }
    // The page may have moved the file.
    if (std::remove(m_temporaryFilePath.c_str()) != 0 && errno != ENOENT) {
        Log::putText(Log::FORM_INFO, Log::ERROR_LEVEL, LogText::SYSTEM_CALL_FAILED, "remove",
                     errno);
    }
    m_temporaryFilePath.clear();
    UploadGuard::release();
}

}  // namespace ORVLib::Gui
