#include "multicall/RequestBody.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>
#include <vector>

#include "common/FileIo.h"
#include "multicall/Refusal.h"

namespace ORVLib::MultiCall {

namespace {

// A form fits into a block. The page cache keeps a block of this size in one piece.
constexpr std::size_t BLOCK_SIZE = 0x10000;
constexpr char FOLDER[] = "/var/tmp";
constexpr char NAME_PATTERN[] = "/var/tmp/orvguid_XXXXXX";
constexpr mode_t OWNER_ONLY = 0600;

[[noreturn]] void refuse(const std::string& what) {
    throw Refusal(Refusal::NO_STORAGE, what + ": " + std::generic_category().message(errno));
}

FileDescriptor openOnDisk() {
    FileDescriptor file(::open(FOLDER, O_TMPFILE | O_RDWR | O_CLOEXEC, OWNER_ONLY));
    if (file.isOpen()) {
        return file;
    }
    // Some file systems of flash memory have no files without a name.
    std::string name = NAME_PATTERN;
    file = FileDescriptor(::mkostemp(name.data(), O_CLOEXEC));
    if (!file.isOpen() || ::unlink(name.c_str()) != 0) {
        refuse("cannot make a file for the body in " + std::string(FOLDER));
    }
    return file;
}

FileDescriptor openFile(std::size_t size) {
    FileDescriptor file(size <= BLOCK_SIZE ? ::memfd_create("body", MFD_CLOEXEC) : -1);
    return file.isOpen() ? std::move(file) : openOnDisk();
}

}  // namespace

FileDescriptor receiveBody(RequestStream& stream, std::size_t size) {
    FileDescriptor file = openFile(size);
    std::vector<char> block(std::min(size, BLOCK_SIZE));
    for (std::size_t left = size; left > 0;) {
        const std::size_t length = std::min(left, block.size());
        stream.receive(block.data(), length);
        if (!writeAll(file.get(), {block.data(), length})) {
            refuse("cannot store a body of " + std::to_string(size) + " bytes in " + FOLDER);
        }
        left -= length;
    }
    if (::lseek(file.get(), 0, SEEK_SET) != 0) {
        refuse("cannot rewind the body");
    }
    return file;
}

}  // namespace ORVLib::MultiCall
