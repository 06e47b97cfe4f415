#include "pages/maintenance/FirmwareImage.h"

#include <stdexcept>
#include <string_view>

namespace Console {

namespace {

constexpr std::string_view MAGIC = "ORVFIRM1";
constexpr std::size_t SIZE_BYTES = 4;

}  // namespace

FirmwareImage::FirmwareImage(const std::string& path) : m_file(path, std::ios::binary) {
    const std::string begin = read(MAGIC.size() + SIZE_BYTES);
    m_image =
        begin.size() == MAGIC.size() + SIZE_BYTES && begin.compare(0, MAGIC.size(), MAGIC) == 0;
    if (m_image) {
        for (const char byte : begin.substr(MAGIC.size())) {
            m_announcedSize = m_announcedSize << 8 | static_cast<unsigned char>(byte);
        }
    }
    m_file.clear();
    m_file.seekg(0);
}

std::string FirmwareImage::read(std::size_t most) {
    std::string bytes(most, '\0');
    m_file.read(bytes.data(), static_cast<std::streamsize>(most));
    if (!m_file && !m_file.eof()) {
        throw std::runtime_error("the uploaded image cannot be read");
    }
    bytes.resize(static_cast<std::size_t>(m_file.gcount()));
    return bytes;
}

}  // namespace Console
