#include "gui/MessageMgr.h"

#include <cstdarg>
#include <cstdio>
#include <sstream>
#include <vector>

#include "base/Log.h"
#include "base/SitePaths.h"
#include "common/ByteOrder.h"
#include "common/ErrorCode.h"
#include "orv/CsvInfoAccess.h"

namespace ORVLib::Gui {

namespace {

constexpr unsigned int WORD_SIZE = 4;

const char* cataloguePath(int language) {
    return language == 0 ? SitePaths::CATALOGUE_JAPANESE : SitePaths::CATALOGUE_ENGLISH;
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

/// A catalogue file that is read into memory at once, so that its strings need no further system
/// calls. A file far larger than any catalogue is read from the disk instead.
class CatalogueFile : public std::ifstream {
public:
    explicit CatalogueFile(const char* path) : std::ifstream(path, std::ios::binary) {
        if (!good()) {
            return;
        }
        std::string bytes = readBytes();
        clear();
        if (bytes.size() < LARGEST_IN_MEMORY) {
            m_bytes.str(bytes);
            std::ios::rdbuf(&m_bytes);
        } else {
            seekg(0);
        }
    }

private:
    static constexpr std::size_t LARGEST_IN_MEMORY = 1U << 20;

    std::string readBytes() {
        constexpr std::size_t BLOCK_SIZE = 16384;
        std::string bytes;
        while (good() && bytes.size() < LARGEST_IN_MEMORY) {
            const std::size_t length = bytes.size();
            bytes.resize(length + BLOCK_SIZE);
            read(&bytes[length], BLOCK_SIZE);
            bytes.resize(length + static_cast<std::size_t>(gcount()));
        }
        return bytes;
    }

    std::stringbuf m_bytes{std::ios::in};
};

bool readWords(std::ifstream& file, unsigned int* words, unsigned int count) {
    std::vector<unsigned char> bytes(std::size_t{count} * WORD_SIZE);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    for (unsigned int i = 0; file.good() && i < count; ++i) {
        words[i] = Bytes::read32(&bytes[std::size_t{i} * WORD_SIZE]);
    }
    return file.good();
}

std::string codeSuffix(int code) {
    char suffix[sizeof " (00:ffffffff)"];
    std::snprintf(suffix, sizeof suffix, " (00:%04x)", static_cast<unsigned int>(code));
    return suffix;
}

}  // namespace

MessageMgr::MessageMgr(int language)
    : m_language(language), m_stream(std::make_unique<CatalogueFile>(cataloguePath(language))) {
    if (!m_stream->good() || !readOffsets(sizeOf(*m_stream))) {
        Log::putText(Log::MESSAGE_MGR, Log::ERROR_LEVEL, LogText::CANNOT_OPEN,
                     "MessageMgr::MessageMgr(int)", cataloguePath(language));
    }
}

MessageMgr::~MessageMgr() = default;

bool MessageMgr::readOffsets(unsigned int fileSize) {
    unsigned int count = 0;
    if (fileSize < WORD_SIZE || !readWords(*m_stream, &count, 1) ||
        count > (fileSize - WORD_SIZE) / WORD_SIZE) {
        return false;
    }
    m_offsets = std::make_unique<unsigned int[]>(count);
    if (!readWords(*m_stream, m_offsets.get(), count)) {
        return false;
    }
    m_count = count;
    m_dataStart = m_stream->tellg();
    return true;
}

std::string MessageMgr::getString(int id) {
    if (id < 0 || m_count <= static_cast<unsigned int>(id)) {
        return "failed to read string for CGI";
    }
    std::string text;
    m_stream->clear();  // the string before may have ended at the end of the file
    m_stream->seekg(m_dataStart +
                    static_cast<std::streamoff>(m_offsets[static_cast<unsigned>(id)]));
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
