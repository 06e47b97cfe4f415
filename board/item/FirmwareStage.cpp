#include "item/FirmwareStage.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <system_error>

#include "common/FileIo.h"
#include "item/ItemValidators.h"
#include "wire/Telegram.h"

namespace ORVLib::Board {

namespace {

// The image's header: magic, size of the file, version, digest of the payload that follows.
constexpr std::string_view MAGIC = "ORVFIRM1";
constexpr std::size_t SIZE_OFFSET = 8;
constexpr std::size_t VERSION_OFFSET = 12;
constexpr std::size_t DIGEST_OFFSET = VERSION_OFFSET + MAX_VERSION_LENGTH;
constexpr std::size_t HEADER_SIZE = DIGEST_OFFSET + Digest::SIZE;

constexpr std::uint64_t RESERVE = std::uint64_t{1024} * 1024;

std::optional<std::string> readVersion(const std::string& header) {
    std::string version = readField(header, VERSION_OFFSET, MAX_VERSION_LENGTH);
    std::string filled = version;
    filled.resize(MAX_VERSION_LENGTH, '\0');
    const bool isFilled = header.compare(VERSION_OFFSET, filled.size(), filled) == 0;
    return isFilled && isVersion(version) ? std::optional<std::string>(version) : std::nullopt;
}

int openNew(const std::string& path) {
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                  S_IRUSR | S_IWUSR);
}

// Sessions, settings and events need space on the same disk.
bool leavesReserve(int file, std::size_t added) {
    struct statvfs disk {};
    return ::fstatvfs(file, &disk) == 0 &&
           std::uint64_t{disk.f_bavail} * disk.f_frsize >= RESERVE + added;
}

}  // namespace

FirmwareStage::FirmwareStage(std::string path) : m_path(std::move(path)) {
    ::unlink(m_path.c_str());
}

void FirmwareStage::begin(const std::string& sessionId) {
    drop();
    m_file = FileDescriptor(openNew(m_path));
    if (!m_file.isOpen()) {
        throw std::system_error(errno, std::generic_category(), m_path);
    }
    m_owner = sessionId;
}

void FirmwareStage::append(std::string_view bytes) {
    if (!leavesReserve(m_file.get(), bytes.size())) {
        fail(ENOSPC);
    }
    if (!writeAll(m_file.get(), bytes)) {
        fail(errno);
    }
    m_size += bytes.size();
    m_fileDigest.add(bytes);
    const std::string_view head = bytes.substr(0, HEADER_SIZE - m_header.size());
    m_header += head;
    m_payloadDigest.add(bytes.substr(head.size()));
}

void FirmwareStage::fail(int error) {
    drop();
    throw std::system_error(error, std::generic_category(), m_path);
}

void FirmwareStage::drop() {
    if (m_file.isOpen()) {
        ::unlink(m_path.c_str());
        m_file.close();
    }
    m_owner.clear();
    m_size = 0;
    m_header.clear();
    m_fileDigest = Digest();
    m_payloadDigest = Digest();
}

bool FirmwareStage::hasAnnouncedSize() const {
    return m_header.size() == HEADER_SIZE && m_size > HEADER_SIZE &&
           readNumber(m_header, SIZE_OFFSET) == m_size;
}

std::optional<std::string> FirmwareStage::getVersion() const {
    if (!hasAnnouncedSize() || m_header.compare(0, MAGIC.size(), MAGIC) != 0 ||
        m_header.compare(DIGEST_OFFSET, Digest::SIZE, m_payloadDigest.get()) != 0) {
        return std::nullopt;
    }
    return readVersion(m_header);
}

}  // namespace ORVLib::Board
