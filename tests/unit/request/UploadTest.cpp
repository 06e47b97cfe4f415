#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <climits>
#include <csignal>
#include <filesystem>
#include <memory>
#include <tuple>

#include "gui/AbstractMain.h"
#include "gui/FormInfo.h"
#include "support/Captured.h"
#include "support/CgiRequest.h"
#include "support/Child.h"
#include "support/Files.h"

using ORVLib::Gui::AbstractMain;
using ORVLib::Gui::FormInfo;

namespace {

constexpr int MODULE = 0x802;
constexpr std::size_t BUFFER = 65536;

std::string fieldPart(const std::string& boundary, const std::string& name,
                      const std::string& value) {
    return "--" + boundary + "\r\nContent-Disposition: form-data; name=\"" + name + "\"\r\n\r\n" +
           value + "\r\n";
}

std::string filePart(const std::string& boundary, const std::string& fileName,
                     const std::string& content) {
    return "--" + boundary + "\r\nContent-Disposition: form-data; name=\"f\"; filename=\"" +
           fileName + "\"\r\nContent-Type: application/octet-stream\r\n\r\n" + content + "\r\n";
}

std::string closing(const std::string& boundary) {
    return "--" + boundary + "--\r\n";
}

/// `size` bytes full of what almost ends a part, but never does.
std::string nearMarkers(const std::string& boundary, std::size_t size) {
    const std::string start = "\r\n--" + boundary;
    const std::string round = start + "-\r\n" + start + "\r" + start + "--\n" + start +
                              "x\r\r\n\n-" + bytes("\0\xff") + "--" +
                              start.substr(0, start.size() - 1);
    std::string content;
    while (content.size() < size) {
        content += round;
    }
    content.resize(size);
    // A cut round must not become a marker together with what follows it.
    const std::size_t tail = std::min(size, boundary.size() + 8);
    content.replace(size - tail, tail, tail, '-');
    return content;
}

struct Upload {
    std::string content;
    std::string fields;
};

Upload received(const std::string& boundary, const std::string& body) {
    CgiRequest request;
    request.postMultipart(boundary, body);
    FormInfo form;
    form.readSkipData();
    EXPECT_EQ(std::filesystem::file_size(form.getTemporaryFilePath()), form.getWrittenSize());
    return {readFile(form.getTemporaryFilePath()), form.getQueryString()};
}

class UploadSizes : public testing::TestWithParam<std::size_t> {};

// Every place where the marker behind a file meets the end of the full buffer: the file's first
// byte comes to stand at the buffer's start, and each further fill keeps about a marker's length.
TEST_P(UploadSizes, AreExact) {
    const std::string boundary(GetParam(), 'B');
    const std::string before = fieldPart(boundary, "a", "1");
    const std::size_t marker = boundary.size() + 8;
    for (const std::size_t meeting : {marker + 4, BUFFER, 2 * BUFFER - marker}) {
        for (std::size_t size = meeting - marker - 4; size < meeting + marker + 4; ++size) {
            const std::string content = nearMarkers(boundary, size);
            const std::string file = before + filePart(boundary, "f", content);
            const Upload last = received(boundary, file + closing(boundary));
            ASSERT_TRUE(last.content == content) << "last part of " << size << " bytes";
            ASSERT_EQ(last.fields, "a=1");
            const Upload followed =
                received(boundary, file + fieldPart(boundary, "z", "2") + closing(boundary));
            ASSERT_TRUE(followed.content == content) << "followed part of " << size << " bytes";
            ASSERT_EQ(followed.fields, "a=1&z=2") << size;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Boundaries, UploadSizes, testing::Values(1U, 2U, 40U, 70U));

TEST(Upload, BoundaryOfAnyLengthIsExactOrRefused) {
    const std::string content = std::string(1000, '\r') + std::string(1000, '\n');
    for (const std::size_t length :
         {std::size_t{0}, BUFFER / 2, BUFFER - 1000, BUFFER - 300, BUFFER - 2, BUFFER + 1}) {
        const std::string boundary(length, 'B');
        const bool fits = length < BUFFER - 2;
        CgiRequest request;
        request.postMultipart(boundary, fieldPart(boundary, "a", "1") + closing(boundary));
        EXPECT_EQ(FormInfo().getQueryString(), fits ? "a=1" : "") << length;
        if (length > 0 && fits) {
            const std::string body = filePart(boundary, "f", content) + closing(boundary);
            EXPECT_EQ(received(boundary, body).content, content) << length;
        }
    }
}

TEST(Upload, IsCutAtTheLargestSize) {
    const std::string most(FormInfo::LARGEST_UPLOAD, 'x');
    for (const char* const more : {"", "y"}) {
        CgiRequest request;
        request.postMultipart(
            "B", filePart("B", "f", most + more) + fieldPart("B", "z", "2") + closing("B"));
        FormInfo form;
        EXPECT_TRUE(form.isReadSkip());
        form.readSkipData();
        EXPECT_EQ(form.getWrittenSize(), FormInfo::LARGEST_UPLOAD);
        EXPECT_EQ(std::filesystem::file_size(form.getTemporaryFilePath()),
                  FormInfo::LARGEST_UPLOAD);
        EXPECT_EQ(form.getQueryString(), "z=2");
    }
}

TEST(Upload, KeepsTheNameWithoutFoldersAndTheContentThatCameLast) {
    using Case = std::tuple<const char*, const char*, const char*>;
    for (const auto& [first, second, kept] :
         {Case{"one", "two", "one"}, Case{"one", "/d/two", "two"}, Case{"", "two", "two"},
          Case{"fw.bin", "", "fw.bin"}, Case{"C:\\dir\\fw.bin", "", "fw.bin"},
          Case{"/home/u/fw.bin", "", "fw.bin"}, Case{"a/b\\c", "", "c"}, Case{"dir/", "", ""},
          Case{"", "", ""}, Case{"\xa4\xa2.bin", "", "\xa4\xa2.bin"}}) {
        CgiRequest request;
        request.postMultipart("B", filePart("B", first, "first content") +
                                       filePart("B", second, "second") + closing("B"));
        auto form = std::make_unique<FormInfo>();
        const std::string path = form->getTemporaryFilePath();
        EXPECT_EQ(readFile(path), "second");
        EXPECT_EQ(form->getWrittenSize(), 6U);
        EXPECT_EQ(form->getUploadedFileName(), kept) << first;
        form.reset();
        EXPECT_FALSE(std::filesystem::exists(path));
    }
}

TEST(Upload, FileIsTheOwnersAlone) {
    CgiRequest request;
    request.postMultipart("B", filePart("B", "f", "x") + closing("B"));
    FormInfo form;
    const std::string path = form.getTemporaryFilePath();
    EXPECT_EQ(path.rfind("/var/tmp/tmp_", 0), 0U);
    struct stat status {};
    ASSERT_EQ(lstat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0600U);
    // Once it is deleted, a file of the same name is somebody else's.
    form.terminate();
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(form.getTemporaryFilePath(), "");
    writeFile(path, "somebody else's");
    form.terminate();
    EXPECT_TRUE(std::filesystem::remove(path));
}

/// A page program that has nothing to do but to read its request.
class Page : public AbstractMain {
public:
    explicit Page(FormInfo* form) : AbstractMain(form, 1) {}

private:
    int execMain() override { return 0; }
};

/// The upload that a process has open, once it has.
std::string uploadOf(pid_t process) {
    const std::string files = "/proc/" + std::to_string(process) + "/fd";
    for (int attempt = 0; attempt < 5000; ++attempt) {
        for (const auto& file : std::filesystem::directory_iterator(files)) {
            std::error_code gone;
            std::string path = std::filesystem::read_symlink(file, gone);
            if (path.rfind("/var/tmp/tmp_", 0) == 0) {
                return path;
            }
        }
        usleep(1000);
    }
    return "";
}

/// Ends as the kernel would end a process without handlers, but leaves no core file.
void endByDefault(int signal) {
    const rlimit none{};
    setrlimit(RLIMIT_CORE, &none);
    std::signal(signal, SIG_DFL);
}

// In the middle of an upload: the body does not go on. A larger one is read by exec().
TEST(Upload, GoesHoweverTheProcessEnds) {
    for (const char* const announced : {"1000000", "3000000"}) {
        for (const int signal : {SIGTERM, SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGALRM, SIGABRT,
                                 SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGSYS, SIGXCPU}) {
            if (signal == SIGPIPE && *announced == '3') {
                continue;  // exec() ignores it
            }
            CgiRequest request;
            request.post("multipart/form-data; boundary=B", "", announced);
            int body[2];
            ASSERT_EQ(pipe2(body, O_CLOEXEC), 0);
            fcntl(body[1], F_SETPIPE_SZ, 2 * BUFFER);
            const std::string begin = filePart("B", "f", std::string(BUFFER, 'x'));
            ASSERT_EQ(write(body[1], begin.data(), begin.size()),
                      static_cast<ssize_t>(begin.size()));
            const pid_t child = fork();
            if (child == 0) {
                dup2(body[0], STDIN_FILENO);
                endByDefault(signal);
                FormInfo form;
                std::_Exit(Page(&form).exec());
            }
            const std::string path = uploadOf(child);
            kill(child, signal);
            close(body[0]);
            close(body[1]);
            int status = 0;
            waitpid(child, &status, 0);
            EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal;
            EXPECT_NE(path, "");
            EXPECT_FALSE(std::filesystem::exists(path)) << signal;
        }
    }
}

int fillStack(int depth) {
    static int (*volatile const again)(int) = fillStack;
    volatile char block[4096];
    block[0] = 0;
    return depth == 0 ? 0 : again(depth - 1) + block[0];
}

TEST(Upload, GoesWithItsOwnProcessAndWithAFullStack) {
    CgiRequest request;
    request.postMultipart("B", filePart("B", "f", "x") + closing("B"));
    for (const bool overflows : {false, true}) {
        const ChildResult page = inChild([overflows] {
            endByDefault(SIGSEGV);
            static const FormInfo* const form = new FormInfo;  // nobody destroys it
            std::cout << form->getTemporaryFilePath() << std::flush;
            if (fork() == 0) {
                raise(SIGSEGV);
            }
            wait(nullptr);
            const bool kept = std::filesystem::exists(form->getTemporaryFilePath());
            return kept && overflows ? fillStack(INT_MAX) : kept;
        });
        EXPECT_EQ(page.status, overflows ? -1 : 1);
        EXPECT_EQ(page.output.rfind("/var/tmp/tmp_", 0), 0U);
        EXPECT_FALSE(std::filesystem::exists(page.output)) << overflows;
        lseek(STDIN_FILENO, 0, SEEK_SET);
    }
}

TEST(Multipart, PartsThatMakeNoSenseEndTheParsingSafely) {
    const std::string good = fieldPart("B", "a", "1");
    const std::string disposition = "--B\r\nContent-Disposition: form-data; ";
    for (const TextCase& c :
         {TextCase{"", ""}, TextCase{"no boundary at all", ""},
          TextCase{good + fieldPart("B", "a", "2") + closing("B"), "a=2"},
          TextCase{
              good + fieldPart("B", "b", "one\r\ntwo") + fieldPart("B", "c", "+%41") + closing("B"),
              "a=1&b=one&c=+%41"},
          TextCase{good + "--B\r\nContent-Type: text/plain\r\n\r\nx\r\n" + fieldPart("B", "b", "2"),
                   "a=1"},
          TextCase{good + disposition + "name=\"\r\n\r\nx\r\n" + fieldPart("B", "b", "2"), "a=1"},
          TextCase{good + disposition + "name=\"open\r\n\r\nx\r\n" + closing("B"), "a=1&ope=x"},
          TextCase{good + disposition + "name=\"b", "a=1"},
          TextCase{good + disposition + "name=\"b\"\r\n", "a=1"},
          TextCase{good + disposition + "name=\"b\"\r\n\r\n", "a=1"},
          TextCase{good + disposition + "name=\"b\"\r\n\r\nx\r\n", "a=1"},
          TextCase{good + disposition +
                       "name=\"b\"\r\nContent-Type: text/plain\r\nX: y\r\n\r\nx\r\n" + closing("B"),
                   "a=1&b=x"},
          TextCase{good + fieldPart("B", "b", bytes("x\0y")) + closing("B"), "a=1&b=x"},
          TextCase{good + fieldPart("B", bytes("b\0c"), "x") + closing("B"), "a=1"},
          TextCase{good + fieldPart("B", "b", std::string(BUFFER, 'x')) + fieldPart("B", "c", "3"),
                   "a=1"},
          TextCase{good + disposition + "name=\"" + std::string(BUFFER, 'n'), "a=1"}}) {
        CgiRequest request;
        request.postMultipart("B", c.text);
        EXPECT_EQ(FormInfo().getQueryString(), c.expected) << c.text.substr(0, 200);
    }
}

TEST(Multipart, AFileWithoutItsLastMarkerEndsAtTheBody) {
    const std::string body = filePart("BOUND", "f", "content");  // ends with CR LF
    for (const TextCase& c : {TextCase{"--BOUND--\r\n", "content"},
                              TextCase{"--BOUND--\r", "content"}, TextCase{"--BOUND--", "content"},
                              TextCase{"and more 12345678901", "content\r\nand more "}}) {
        const CapturedTrace trace;
        EXPECT_EQ(received("BOUND", body + c.text).content, c.expected) << c.text;
        EXPECT_EQ(trace.has(0, MODULE, "FormInfo::setUploadedFileInfo() Nomore data"),
                  c.text != "--BOUND--\r\n");
    }
    const CapturedTrace trace;
    const std::string headers = body.substr(0, body.find("content"));
    EXPECT_EQ(received("BOUND", headers + "short").content, "short");
    EXPECT_TRUE(trace.has(200, MODULE, "FormInfo::getBlockEnd() Data too short."));
}

}  // namespace
