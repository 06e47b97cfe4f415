#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace Console {

/// An uploaded firmware image: a file that begins with the bytes "ORVFIRM1" and the size of the
/// whole file. The board checks the rest.
class FirmwareImage {
public:
    explicit FirmwareImage(const std::string& path);

    /// False for a file with another beginning.
    bool isImage() const { return m_image; }

    /// The size in the header. REQUIRES: isImage().
    std::uint32_t getAnnouncedSize() const { return m_announcedSize; }

    /// Reads the next bytes, from the beginning of the file on: `most` of them, fewer at the end of
    /// the file, then none. Throws std::runtime_error when the file cannot be read.
    std::string read(std::size_t most);

private:
    std::ifstream m_file;
    bool m_image = false;
    std::uint32_t m_announcedSize = 0;
};

}  // namespace Console
