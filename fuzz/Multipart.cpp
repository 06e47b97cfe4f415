// A multipart form that arrives in pieces, against a plain reading of the same rules.
#include <algorithm>
#include <cerrno>
#include <optional>

#include "Input.h"
#include "gui/FormInfo.h"
#include "orv/PException.h"
#include "support/CgiRequest.h"
#include "support/Files.h"

using ORVLib::Gui::FormInfo;

namespace {

constexpr std::size_t WINDOW = 65536;  // a part's headers and a field's first line lie within it
constexpr std::size_t NONE = std::string::npos;

/// What the next reads bring: 0 an interruption, any other so many bytes. Behind it as many as
/// asked.
std::string pieces;

struct Form {
    FormInfo::FieldMap fields;
    std::string fileName;
    std::optional<std::string> file;
};

/// Where the line behind the one at `from` starts; none unless it has a byte.
std::size_t nextLine(const std::string& text, std::size_t from) {
    const std::size_t end = from != NONE ? text.find("\r\n", from) : NONE;
    return end == NONE || end + 2 >= text.size() ? NONE : end + 2;
}

std::string lineBefore(const std::string& text, std::size_t from, std::size_t next) {
    return Fuzz::cString(text.substr(from, next - 2 - from));
}

/// Where the file that starts at `start` ends.
std::size_t endOfFile(const std::string& body, std::size_t start, const std::string& boundary) {
    const std::string next = "\r\n--" + boundary + "\r\n";
    const std::string last = "\r\n--" + boundary + "--\r\n";
    const std::size_t end = std::min(body.find(next, start), body.find(last, start));
    if (body.size() - start < next.size() || end != NONE) {
        return std::min(end, body.size());
    }
    const std::size_t cut = last.size() - 1;  // what is there of a last marker without its end
    const bool isCut =
        body.size() - start >= cut && body.compare(body.size() - cut, cut, last, 0, cut) == 0;
    return body.size() - (isCut ? cut : next.size());
}

/// Takes the part behind `at`, and returns where it ends.
std::size_t readPart(const std::string& body, std::size_t at, const std::string& boundary,
                     Form& form) {
    const std::string window = body.substr(at, WINDOW);
    const std::string start = boundary + "\r\n" + std::string(FormInfo::checkStringForm);
    const std::size_t block = window.find(boundary + "\r\n");
    const std::size_t name = block != NONE ? block + start.size() : NONE;
    std::size_t line = nextLine(window, block != NONE ? block + boundary.size() + 2 : NONE);
    if (line == NONE || window.compare(block, start.size(), start) != 0 ||
        lineBefore(window, block, line).size() <= start.size()) {
        return NONE;
    }
    std::string header = lineBefore(window, name, line);
    header.pop_back();  // the closing quote
    const std::size_t file = header.find(FormInfo::checkStringFile);
    if (file != NONE) {
        const std::string path = header.substr(file + FormInfo::checkStringFile.size());
        const std::size_t folder = path.find_last_of("\\/");
        form.fileName = folder != NONE          ? path.substr(folder + 1)
                        : form.fileName.empty() ? path
                                                : form.fileName;
    }
    while (line != NONE && window.compare(line, 2, "\r\n") != 0) {
        line = nextLine(window, line);
    }
    const std::size_t content = nextLine(window, line);
    if (content != NONE && (file != NONE || header.empty())) {
        const std::size_t end = endOfFile(body, at + content, boundary);
        form.file = body.substr(at + content, end - at - content);
        return end;
    }
    const std::size_t end = nextLine(window, content);
    if (end != NONE) {
        form.fields[header] = lineBefore(window, content, end);
    }
    return end != NONE ? at + end : NONE;
}

}  // namespace

extern "C" ssize_t __real_read(int file, void* buffer, std::size_t size);  // NOLINT

extern "C" ssize_t __wrap_read(int file, void* buffer, std::size_t size) {  // NOLINT
    if (file == STDIN_FILENO && !pieces.empty()) {
        const auto piece = static_cast<unsigned char>(pieces.back());
        pieces.pop_back();
        if (piece == 0) {
            errno = EINTR;
            return -1;
        }
        size = std::min(size, std::size_t{piece} * piece);
    }
    return __real_read(file, buffer, size);
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    const unsigned int large = input.number();
    const auto excess = static_cast<signed char>(input.number());
    const std::string boundary = Fuzz::cString(Fuzz::Input(input.text()).body());
    const std::string chosen = input.take(input.number());
    std::string body = input.body(large >= 0xf0 ? FormInfo::LARGEST_BODY_AT_START + 300 : 200000);
    const auto arrived = static_cast<long>(body.size());
    const long announced = std::max(arrived + excess, 0L);
    CgiRequest request;
    request.post("", body, std::to_string(announced));
    Fuzz::setVariable("CONTENT_TYPE", "multipart/form-data; boundary=" + boundary);
    pieces = chosen;
    try {
        FormInfo form;
        Fuzz::require(form.isReadSkip() == (announced > FormInfo::LARGEST_BODY_AT_START));
        form.readSkipData();
        if (announced > arrived) {
            Fuzz::require(arrived >= static_cast<long>(WINDOW));  // its end was never looked at
            return 0;
        }
        body.resize(static_cast<std::size_t>(announced));
        Form expected;
        for (std::size_t at = 0; at != NONE;) {
            at = readPart(body, at, boundary, expected);
        }
        Fuzz::require(form.getFields() == expected.fields);
        Fuzz::require(form.getUploadedFileName() == expected.fileName);
        Fuzz::require(form.getTemporaryFilePath().empty() == !expected.file);
        Fuzz::require(!expected.file || readFile(form.getTemporaryFilePath()) == *expected.file);
        Fuzz::require(form.getWrittenSize() == expected.file.value_or("").size());
    } catch (const ORVLib::PException&) {
        Fuzz::require(announced > arrived);
    }
    return 0;
}
