#include "gui/HTMLCodeGenerator.h"

#include <fcntl.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "base/Log.h"
#include "base/Output.h"
#include "common/ErrorCode.h"
#include "common/FileDescriptor.h"
#include "common/FileIo.h"
#include "gui/HTMLPage.h"
#include "gui/MessageMgr.h"

namespace ORVLib::Gui {

namespace {

// A larger block would touch more pages of the stack, each of which costs more than a read.
constexpr std::size_t BLOCK_SIZE = 4096;
constexpr char MARKER = '$';

// The message in place of a page whose skeleton cannot be read.
constexpr int NO_SKELETON_LANGUAGE = 0;
constexpr int NO_SKELETON_MESSAGE = 13;

/// Finds the markers in a skeleton that is read in blocks.
class MarkerScanner {
public:
    /// Calls `onText` with the texts between markers in [block, end), and `onMarker` with the names
    /// of the markers that end in it.
    template <typename OnText, typename OnMarker>
    void scan(const char* block, const char* end, OnText onText, OnMarker onMarker) {
        while (block != end) {
            const void* const found =
                std::memchr(block, MARKER, static_cast<std::size_t>(end - block));
            const char* const stop = found != nullptr ? static_cast<const char*>(found) : end;
            if (m_inMarker) {
                m_name.append(block, stop);
            } else {
                onText({block, static_cast<std::size_t>(stop - block)});
            }
            if (found == nullptr) {
                return;
            }
            if (m_inMarker) {
                finish(onMarker);
            } else {
                m_inMarker = true;
            }
            block = stop + 1;
        }
    }

    /// Ends the marker that is still open, if any.
    template <typename OnMarker>
    void finish(OnMarker onMarker) {
        if (m_inMarker) {
            onMarker(m_name);
        }
        m_inMarker = false;
        m_name.clear();
    }

private:
    bool m_inMarker = false;
    std::string m_name;
};

}  // namespace

HTMLCodeGenerator::HTMLCodeGenerator(ComponentMap* map)
    : m_skeletonFileName(HTMLPage::SKELETON_FILE_NAME), m_map(map) {}

HTMLCodeGenerator::~HTMLCodeGenerator() = default;

void HTMLCodeGenerator::printHTML() const {
    const FileDescriptor skeleton(open(m_skeletonFileName.c_str(), O_RDONLY | O_CLOEXEC));
    char block[BLOCK_SIZE];
    ssize_t length = skeleton.isOpen() ? readSome(skeleton.get(), block, BLOCK_SIZE) : -1;
    if (length < 0) {
        printUnreadable();
        return;
    }
    const Output::Page page;
    MarkerScanner scanner;
    Output output;
    const auto onText = [&output](std::string_view text) { output << text; };
    const auto onMarker = [this, &output](const std::string& name) {
        if (name.empty()) {
            output << MARKER;
        } else {
            output.print();
            printMarker(name);
        }
    };
    while (length > 0) {
        scanner.scan(block, block + length, onText, onMarker);
        length = readSome(skeleton.get(), block, BLOCK_SIZE);
    }
    scanner.finish(onMarker);
    output.print();
    page.end();
    if (length < 0) {
        logUnreadable();
    }
}

void HTMLCodeGenerator::printMarker(const std::string& name) const {
    if (m_map == nullptr) {
        return;
    }
    const auto entry = m_map->find(name);
    if (entry != m_map->end() && entry->second != nullptr) {
        entry->second->printHTML();
    }
}

void HTMLCodeGenerator::printUnreadable() const {
    Output output;
    output
        << MessageMgr(NO_SKELETON_LANGUAGE).getMessage(NO_SKELETON_MESSAGE, ErrorCode::NO_SKELETON);
    output.print();
    logUnreadable();
}

void HTMLCodeGenerator::logUnreadable() const {
    Log::putText(Log::CODE_GENERATOR, Log::ERROR_LEVEL, LogText::CANNOT_OPEN,
                 "HTMLCodeGenerator::printHTML()", m_skeletonFileName.c_str());
}

bool HTMLCodeGenerator::isError() const {
    return m_map != nullptr && std::any_of(m_map->begin(), m_map->end(), [](const auto& entry) {
               return entry.second != nullptr && entry.second->isError();
           });
}

}  // namespace ORVLib::Gui
