#include "gui/MessageMgr.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdarg>
#include <sstream>
#include <vector>

#include "base/Hex.h"
#include "base/Log.h"
#include "base/SitePaths.h"
#include "common/ByteOrder.h"
#include "common/ErrorCode.h"
#include "common/FileDescriptor.h"
#include "common/FileIo.h"
#include "orv/CsvInfoAccess.h"

namespace ORVLib::Gui {

namespace {

constexpr unsigned int WORD_SIZE = 4;

/// A file far larger than any catalogue stays on the disk, and its strings are read one by one.
constexpr off_t LARGEST_IN_MEMORY = 1 << 20;

const char* cataloguePath(int language) {
    return language == 0 ? SitePaths::CATALOGUE_JAPANESE : SitePaths::CATALOGUE_ENGLISH;
}

/// Reads up to `size` bytes. Returns the number of bytes read.
std::size_t readAll(const FileDescriptor& file, char* bytes, std::size_t size) {
    std::size_t done = 0;
    ssize_t length = 1;
    while (length > 0 && done < size) {
        length = readSome(file.get(), bytes + done, size - done);
        done += length > 0 ? static_cast<std::size_t>(length) : 0;
    }
    return done;
}

/// Reads a catalogue into one array: the number of strings, their offsets, and the texts with a NUL
/// after the last. An offset outside the texts becomes that of an empty one. Returns null
/// for a damaged catalogue.
std::unique_ptr<unsigned int[]> readCatalogue(const FileDescriptor& file, std::size_t size) {
    std::unique_ptr<unsigned int[]> words(new unsigned int[size / WORD_SIZE + 1]);
    char* const bytes = reinterpret_cast<char*>(words.get());
    size = readAll(file, bytes, size);
    bytes[size] = '\0';
    const auto* const numbers = reinterpret_cast<const unsigned char*>(bytes);
    if (size < WORD_SIZE || Bytes::read32(numbers) > size / WORD_SIZE - 1) {
        return nullptr;
    }
    words[0] = Bytes::read32(numbers);
    const std::size_t textSize = size - (std::size_t{words[0]} + 1) * WORD_SIZE;
    for (std::size_t i = 1; i <= words[0]; ++i) {
        words[i] =
            std::min(Bytes::read32(numbers + i * WORD_SIZE), static_cast<unsigned int>(textSize));
    }
    return words;
}

/// Size of the open file, or 0 when it is unknown. Sets the stream back to its start.
unsigned int sizeOf(std::ifstream& file) {
    file.seekg(0, std::ios::end);
    const std::streamoff size = file.tellg();
    file.clear();
    file.seekg(0);
    if (size < 0) {
        return 0;
    }
    return size > UINT32_MAX ? UINT32_MAX : static_cast<unsigned int>(size);
}

bool readWords(std::ifstream& file, unsigned int* words, unsigned int count) {
    std::vector<unsigned char> bytes(std::size_t{count} * WORD_SIZE);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    for (unsigned int i = 0; file.good() && i < count; ++i) {
        words[i] = Bytes::read32(&bytes[std::size_t{i} * WORD_SIZE]);
    }
    return file.good();
}

std::string codeSuffix(int code) {
    std::string suffix = " (00:";
    Hex::append(suffix, static_cast<unsigned int>(code), 4, '0');
    return suffix + ")";
}

}  // namespace

MessageMgr::MessageMgr(int language) : m_language(language) {
    const char* const path = cataloguePath(language);
    const FileDescriptor file(open(path, O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (file.isOpen() && fstat(file.get(), &status) == 0) {
        if (status.st_size > LARGEST_IN_MEMORY) {
            m_stream = std::make_unique<std::ifstream>(path, std::ios::binary);
            readOffsets(sizeOf(*m_stream));
        } else {
            m_offsets = readCatalogue(file, static_cast<std::size_t>(status.st_size));
            m_count = m_offsets ? m_offsets[0] : 0;
        }
    }
    if (!m_offsets) {
        Log::putText(Log::MESSAGE_MGR, Log::ERROR_LEVEL, LogText::CANNOT_OPEN,
                     "MessageMgr::MessageMgr(int)", path);
    }
}

MessageMgr::~MessageMgr() = default;

/// Reads the offsets of a catalogue whose texts stay on the disk, with their number before them.
bool MessageMgr::readOffsets(unsigned int fileSize) {
    unsigned int count = 0;
    if (fileSize < WORD_SIZE || !readWords(*m_stream, &count, 1) ||
        count > (fileSize - WORD_SIZE) / WORD_SIZE) {
        return false;
    }
    std::unique_ptr<unsigned int[]> words(new unsigned int[std::size_t{count} + 1]);
    words[0] = count;
    if (!readWords(*m_stream, &words[1], count)) {
        return false;
    }
    m_offsets = std::move(words);
    m_count = count;
    m_dataStart = m_stream->tellg();
    return true;
}

std::string MessageMgr::getString(int id) {
    if (id < 0 || m_count <= static_cast<unsigned int>(id)) {
        return "failed to read string for CGI";
    }
    const unsigned int* const words = m_offsets.get();
    const unsigned int offset = words[static_cast<std::size_t>(id) + 1];
    if (!m_stream) {
        return reinterpret_cast<const char*>(words + 1 + m_count) + offset;
    }
    std::string text;
    m_stream->clear();  // the string before may have ended at the end of the file
    m_stream->seekg(m_dataStart + static_cast<std::streamoff>(offset));
    std::getline(*m_stream, text, '\0');
    return text;
}

std::string MessageMgr::getMessage(int msgId, int code, ...) {
    char buffer[ORV_MESSAGE_SIZE];
    va_list arguments;
    va_start(arguments, code);
    std::string text = lgui_getmsgv(m_language, msgId, buffer, arguments);
    va_end(arguments);
    return code > 0 ? text + codeSuffix(code) : text;
}

int MessageMgr::shownCode(int code, unsigned char expCode) {
    return ErrorCode::shown(code, expCode);
}

bool MessageMgr::getCsvExMsgId(ORVUi::CsvInfoAccess& csv, unsigned int key, unsigned int& msgId) {
    if (csv.isFault()) {
        return false;
    }
    std::string record;
    csv.searchRecord(0, std::to_string(key), record);
    std::istringstream fields(record);
    fields.imbue(std::locale::classic());  // in the page's locale a comma may be part of a number
    unsigned int recordKey = 0;
    char separator = '\0';
    unsigned int number = 0;
    fields >> recordKey >> separator >> number;
    if (number == 0) {
        Log::putText(Log::MESSAGE_MGR, Log::ERROR_LEVEL, LogText::NO_NUMBER,
                     "MessageMgr::getCsvExMsgId() tmpId", number);
        return false;
    }
    msgId = number;
    return true;
}

}  // namespace ORVLib::Gui
