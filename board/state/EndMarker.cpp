#include "state/EndMarker.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace ORVLib::Board {

namespace {

constexpr char CLEAR = '0';
constexpr char SET = '1';

void require(bool done) {
    if (!done) {
        throw std::system_error(errno, std::generic_category(), "cannot note an ended session");
    }
}

// Makes the folder's entry for the file as durable as the file.
void flushFolder(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    require(descriptor.isOpen() && ::fsync(descriptor.get()) == 0);
}

}  // namespace

EndMarker::EndMarker(const std::string& path) try
    : m_file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR)) {
    require(m_file.isOpen());
    char byte = CLEAR;
    const ssize_t count = ::pread(m_file.get(), &byte, sizeof byte, 0);
    require(count >= 0);
    m_isSet = byte != CLEAR;
    if (count == 0) {
        set(false);
        flushFolder(path);
    }
} catch (const std::system_error& error) {
    throw std::runtime_error(path + " cannot be used: " + error.code().message() +
                             "; it keeps ended sessions from coming back");
}

void EndMarker::set(bool isSet) {
    const char byte = isSet ? SET : CLEAR;
    require(::pwrite(m_file.get(), &byte, sizeof byte, 0) == sizeof byte);
    require(::fdatasync(m_file.get()) == 0);
    m_isSet = isSet;
}

}  // namespace ORVLib::Board
