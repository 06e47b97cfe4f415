#pragma once

#include <cstdint>
#include <fstream>
#include <string>

/// A firmware image as it was uploaded: a file that begins with the bytes "ORVFIRM1" and the size
/// that the whole of it has. What else is in it is the board's to check.
class FirmwareImage {
public:
    explicit FirmwareImage(const std::string& path);

    /// False for a file that does not begin as an image does.
    bool isImage() const { return m_image; }

    /// The size that the header says. REQUIRES: isImage().
    std::uint32_t getAnnouncedSize() const { return m_announcedSize; }

    /// The next bytes, from the first on: `most` of them, or what is left; none behind the last.
    /// Throws std::runtime_error when the file cannot be read.
    std::string read(std::size_t most);

private:
    std::ifstream m_file;
    bool m_image = false;
    std::uint32_t m_announcedSize = 0;
};
