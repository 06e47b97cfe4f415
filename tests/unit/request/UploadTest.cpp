#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include "gui/FormInfo.h"
#include "support/Captured.h"
#include "support/CgiRequest.h"
#include "support/Child.h"
#include "support/Files.h"

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

TEST(Upload, BoundaryAlmostAsLongAsTheBufferIsExact) {
    for (const std::size_t length : {BUFFER / 2, BUFFER - 1000, BUFFER - 300}) {
        const std::string boundary(length, 'B');
        const std::string content = std::string(1000, '\r') + std::string(1000, '\n');
        EXPECT_EQ(received(boundary, filePart(boundary, "f", content) + closing(boundary)).content,
                  content);
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

TEST(Upload, KeepsTheNameWithoutFolders) {
    struct Case {
        const char* sent;
        const char* kept;
    };
    for (const Case& c : {Case{"fw.bin", "fw.bin"}, Case{"C:\\dir\\fw.bin", "fw.bin"},
                          Case{"/home/u/fw.bin", "fw.bin"}, Case{"a/b\\c", "c"}, Case{"dir/", ""},
                          Case{"", ""}, Case{"\xa4\xa2.bin", "\xa4\xa2.bin"}}) {
        CgiRequest request;
        request.postMultipart("B", filePart("B", c.sent, "x") + closing("B"));
        EXPECT_EQ(FormInfo().getUploadedFileName(), c.kept) << c.sent;
    }
}

TEST(Upload, OfASecondFileReplacesTheFirst) {
    struct Case {
        const char* first;
        const char* second;
        const char* kept;
    };
    for (const Case& c :
         {Case{"one", "two", "one"}, Case{"one", "/d/two", "two"}, Case{"", "two", "two"}}) {
        CgiRequest request;
        request.postMultipart("B", filePart("B", c.first, "first content") +
                                       filePart("B", c.second, "second") + closing("B"));
        std::string path;
        {
            FormInfo form;
            path = form.getTemporaryFilePath();
            EXPECT_EQ(readFile(path), "second");
            EXPECT_EQ(form.getWrittenSize(), 6U);
            EXPECT_EQ(form.getUploadedFileName(), c.kept);
        }
        EXPECT_FALSE(std::filesystem::exists(path));
    }
}

TEST(Upload, FileIsTheOwnersAlone) {
    CgiRequest request;
    request.postMultipart("B", filePart("B", "f", "x") + closing("B"));
    FormInfo form;
    struct stat status {};
    ASSERT_EQ(lstat(form.getTemporaryFilePath().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0600U);
    EXPECT_EQ(form.getTemporaryFilePath().rfind("/var/tmp/tmp_", 0), 0U);
}

TEST(Upload, GoesWithTerminateOnce) {
    CgiRequest request;
    request.postMultipart("B", filePart("B", "f", "x") + closing("B"));
    FormInfo form;
    const std::string path = form.getTemporaryFilePath();
    form.terminate();
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(form.getTemporaryFilePath(), "");
    writeFile(path, "somebody else's");
    form.terminate();
    EXPECT_TRUE(std::filesystem::remove(path));
}

TEST(Upload, GoesHoweverTheProcessEnds) {
    for (const int signal : {0, SIGTERM, SIGHUP, SIGINT, SIGABRT}) {
        CgiRequest request;
        request.postMultipart("B", filePart("B", "f", "x") + closing("B"));
        const ChildResult child = inChild([signal] {
            static const FormInfo* const form = new FormInfo;  // nobody destroys it
            std::cout << form->getTemporaryFilePath() << std::flush;
            raise(signal);
            return std::filesystem::exists(form->getTemporaryFilePath()) ? 3 : 4;
        });
        EXPECT_EQ(child.status, signal == 0 ? 3 : -1) << signal;
        EXPECT_EQ(child.output.rfind("/var/tmp/tmp_", 0), 0U);
        EXPECT_FALSE(std::filesystem::exists(child.output)) << signal;
    }
}

TEST(Multipart, PartsThatMakeNoSenseEndTheParsingSafely) {
    const std::string good = fieldPart("B", "a", "1");
    const std::string disposition = "--B\r\nContent-Disposition: form-data; ";
    struct Case {
        std::string body;
        const char* fields;
    };
    for (const Case& c : {
             Case{"", ""},
             Case{"no boundary at all", ""},
             Case{good + fieldPart("B", "a", "2") + closing("B"), "a=2"},
             Case{good + fieldPart("B", "b", "one\r\ntwo") + fieldPart("B", "c", "+%41") +
                      closing("B"),
                  "a=1&b=one&c=+%41"},
             Case{good + "--B\r\nContent-Type: text/plain\r\n\r\nx\r\n" + fieldPart("B", "b", "2"),
                  "a=1"},
             Case{good + disposition + "name=\"\r\n\r\nx\r\n" + fieldPart("B", "b", "2"), "a=1"},
             Case{good + disposition + "name=\"open\r\n\r\nx\r\n" + closing("B"), "a=1&ope=x"},
             Case{good + disposition + "name=\"b", "a=1"},
             Case{good + disposition + "name=\"b\"\r\n", "a=1"},
             Case{good + disposition + "name=\"b\"\r\n\r\n", "a=1"},
             Case{good + disposition + "name=\"b\"\r\n\r\nx\r\n", "a=1"},
             Case{good + disposition +
                      "name=\"b\"\r\nContent-Type: text/plain\r\nX: y\r\n\r\nx\r\n" + closing("B"),
                  "a=1&b=x"},
             Case{good + fieldPart("B", "b", bytes("x\0y")) + closing("B"), "a=1&b=x"},
             Case{good + fieldPart("B", bytes("b\0c"), "x") + closing("B"), "a=1"},
             Case{good + fieldPart("B", "b", std::string(BUFFER, 'x')) + fieldPart("B", "c", "3"),
                  "a=1"},
             Case{good + disposition + "name=\"" + std::string(BUFFER, 'n'), "a=1"},
         }) {
        CgiRequest request;
        request.postMultipart("B", c.body);
        EXPECT_EQ(FormInfo().getQueryString(), c.fields) << c.body.substr(0, 200);
    }
}

TEST(Multipart, AFileWithoutItsLastMarkerEndsAtTheBody) {
    const std::string body = filePart("BOUND", "f", "content");  // ends with CR LF
    struct Case {
        std::string end;
        const char* content;
    };
    for (const Case& c :
         {Case{"--BOUND--\r\n", "content"}, Case{"--BOUND--\r", "content"},
          Case{"--BOUND--", "content"}, Case{"and more 12345678901", "content\r\nand more "}}) {
        const CapturedTrace trace;
        EXPECT_EQ(received("BOUND", body + c.end).content, c.content) << c.end;
        EXPECT_EQ(trace.has(0, MODULE, "FormInfo::setUploadedFileInfo() Nomore data"),
                  c.end != "--BOUND--\r\n");
    }
    const CapturedTrace trace;
    const std::string headers = body.substr(0, body.find("content"));
    EXPECT_EQ(received("BOUND", headers + "short").content, "short");
    EXPECT_TRUE(trace.has(200, MODULE, "FormInfo::getBlockEnd() Data too short."));
}

TEST(Multipart, OddBoundariesAreSafe) {
    struct Case {
        std::string boundary;
        const char* fields;
    };
    for (const Case& c : {Case{"", "a=1"}, Case{std::string(BUFFER + 1, 'B'), ""},
                          Case{std::string(BUFFER - 2, 'B'), ""}, Case{"\"B\"", "a=1"}}) {
        CgiRequest request;
        request.postMultipart(c.boundary, fieldPart(c.boundary, "a", "1") + closing(c.boundary));
        EXPECT_EQ(FormInfo().getQueryString(), c.fields) << c.boundary.substr(0, 20);
    }
}

}  // namespace
