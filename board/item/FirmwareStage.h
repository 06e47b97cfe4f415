#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "common/FileDescriptor.h"
#include "protocol/Digest.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

/// The file that receives a firmware image. It belongs to one session, is readable for the daemon's
/// user only, and is deleted when the daemon ends.
class FirmwareStage {
public:
    static constexpr std::size_t MAX_SIZE = std::size_t{96} * 1024 * 1024;

    /// Removes a file at `path` that a killed daemon left.
    explicit FirmwareStage(std::string path);
    ~FirmwareStage() { drop(); }

    FirmwareStage(const FirmwareStage&) = delete;
    FirmwareStage& operator=(const FirmwareStage&) = delete;

    /// Begins a new image in place of any other. Throws std::system_error.
    void begin(const std::string& sessionId);

    /// Appends to the image. When that fails, or would fill the disk, drops it and throws
    /// std::system_error. REQUIRES: isOf() somebody.
    void append(std::string_view bytes);

    /// Forgets the image.
    void drop();

    bool isEmpty() const { return m_owner.empty(); }
    bool isOf(const std::string& sessionId) const { return !isEmpty() && m_owner == sessionId; }
    const std::string& getOwner() const { return m_owner; }
    std::size_t getSize() const { return m_size; }

    /// The digest of the whole file.
    std::string getDigest() const { return m_fileDigest.get(); }

    /// The image's version; none unless it is an image, whole and undamaged.
    std::optional<std::string> getVersion() const;

private:
    bool hasAnnouncedSize() const;
    [[noreturn]] void fail(int error);

    std::string m_path;
    FileDescriptor m_file;
    std::string m_owner;
    std::size_t m_size = 0;
    std::string m_header;
    Digest m_fileDigest;
    Digest m_payloadDigest;
};

}  // namespace ORVLib::Board
