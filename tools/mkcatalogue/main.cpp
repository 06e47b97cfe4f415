#include <fcntl.h>
#include <getopt.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "BinaryForm.h"
#include "CharacterSet.h"
#include "Failure.h"
#include "Limits.h"
#include "Names.h"
#include "TextForm.h"
#include "common/FileDescriptor.h"
#include "common/FileIo.h"

namespace {

using namespace ORVLib::Catalogue;
using ORVLib::FileDescriptor;
using ORVLib::readSome;
using ORVLib::writeAll;

constexpr int EXIT_USAGE = 2;

constexpr char USAGE[] =
    "usage: mkcatalogue --charset SET INPUT.txt OUTPUT.out\n"
    "       mkcatalogue --dump --charset SET CATALOGUE.out\n"
    "       mkcatalogue --header NAMESPACE INPUT.txt OTHER_LANGUAGE.txt OUTPUT.h\n"
    "       mkcatalogue --help\n";

constexpr char HELP[] =
    "\n"
    "Makes a message catalogue from a text file. With --dump, prints the text form of a\n"
    "catalogue. SET is the character set of the catalogue's strings, such as EUC-JP or\n"
    "ISO-8859-1. With --header, makes a C++ header with the names of the texts; fails unless\n"
    "both languages have the same texts with the same names and placeholders (%s, %1).\n"
    "\n"
    "The text form is UTF-8, with one text per line: its number (0 to 65535, in any order,\n"
    "without gaps), blanks, optionally its name (such as TEXT_NEXT) and blanks, the text.\n"
    "Blank lines and lines that begin with # are ignored.\n"
    "In texts:\n"
    "  \\n \\t \\\\   line feed, tab, backslash\n"
    "  \\xHH       the byte with this hexadecimal value, not converted\n"
    "  \\x20       a blank at the start or end of a text\n"
    "\n"
    "Exit status: 0 success; 1 an error, the output is unchanged; 2 wrong usage.\n";

struct Options {
    bool help = false;
    bool dump = false;
    std::string charset;
    std::string nameSpace;  // of a header to make; empty for none
    std::vector<std::string> files;
};

bool readOptions(int argc, char** argv, Options& options) {
    constexpr option KNOWN[] = {{"charset", required_argument, nullptr, 'c'},
                                {"dump", no_argument, nullptr, 'd'},
                                {"header", required_argument, nullptr, 'n'},
                                {"help", no_argument, nullptr, 'h'},
                                {nullptr, 0, nullptr, 0}};
    bool charsetGiven = false;
    opterr = 0;
    for (int found = 0; (found = getopt_long(argc, argv, "", KNOWN, nullptr)) != -1;) {
        switch (found) {
            case 'c':
                options.charset = optarg;
                charsetGiven = true;
                break;
            case 'd':
                options.dump = true;
                break;
            case 'n':
                options.nameSpace = optarg;
                break;
            case 'h':
                options.help = true;
                return true;
            default:
                return false;
        }
    }
    options.files.assign(argv + optind, argv + argc);
    if (!options.nameSpace.empty()) {
        return !charsetGiven && !options.dump && options.files.size() == 3;
    }
    return charsetGiven && options.files.size() == (options.dump ? 1 : 2);
}

Failure systemFailure(const std::string& what, int reason) {
    return Failure(what + ": " + std::strerror(reason));
}

std::string readFile(const std::string& path, std::size_t limit) {
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen()) {
        throw systemFailure(path, errno);
    }
    std::string content;
    char buffer[65536];
    while (true) {
        const ssize_t length = readSome(file.get(), buffer, sizeof buffer);
        if (length < 0) {
            throw systemFailure(path, errno);
        }
        if (length == 0) {
            return content;
        }
        content.append(buffer, static_cast<std::size_t>(length));
        if (content.size() > limit) {
            throw Failure(path + ": larger than " + std::to_string(limit >> 20) + " MiB");
        }
    }
}

mode_t newFileMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// Renaming would replace a device by a file, or the text form by what was made from it.
void refuseToReplace(const std::string& target, const std::string& input) {
    std::error_code absent;
    if (std::filesystem::equivalent(target, input, absent)) {
        throw Failure(target + ": input and output are the same file");
    }
    const std::filesystem::file_status status = std::filesystem::status(target, absent);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        throw Failure(target + ": not a regular file");
    }
}

// Whoever reads `target` meanwhile sees the old file or the new one, never a part.
void replaceFile(const std::string& target, std::string_view bytes) {
    std::string temporary = target + ".XXXXXX";
    FileDescriptor file(mkstemp(temporary.data()));
    if (!file.isOpen()) {
        throw systemFailure(target, errno);
    }
    if (writeAll(file.get(), bytes) && fchmod(file.get(), newFileMode()) == 0 &&
        fsync(file.get()) == 0 && file.close() &&
        std::rename(temporary.c_str(), target.c_str()) == 0) {
        return;
    }
    const int reason = errno;
    unlink(temporary.c_str());
    throw systemFailure(target, reason);
}

void writeOut(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
        throw systemFailure("standard output", errno);
    }
}

void closeOut() {
    if (std::fclose(stdout) != 0) {
        throw systemFailure("standard output", errno);
    }
}

int help() {
    writeOut(USAGE);
    writeOut(HELP);
    closeOut();
    return EXIT_SUCCESS;
}

int dump(const std::string& path, const CharacterSet& characters) {
    const std::string file = readFile(path, MAX_BINARY_SIZE);
    std::vector<std::string_view> strings;
    try {
        strings = readBinary(file);
    } catch (const Failure& failure) {
        throw Failure(path + ": " + failure.what());
    }
    for (std::size_t number = 0; number < strings.size(); ++number) {
        writeOut(textLine(number, strings[number], characters));
    }
    closeOut();
    return EXIT_SUCCESS;
}

/// Says what is wrong in `file`. Returns true when nothing is.
bool report(const std::string& file, const std::vector<Problem>& problems) {
    for (const Problem& problem : problems) {
        std::cerr << file << ':';
        if (problem.line > 0) {
            std::cerr << problem.line << ':';
        }
        std::cerr << ' ' << problem.text << '\n';
    }
    return problems.empty();
}

int make(const std::string& input, const std::string& output, const CharacterSet& characters) {
    const std::string file = readFile(input, MAX_TEXT_SIZE);
    const TextReader reader(file, characters);
    if (!report(input, reader.problems())) {
        return EXIT_FAILURE;
    }
    refuseToReplace(output, input);
    replaceFile(output, makeBinary(reader.strings()));
    return EXIT_SUCCESS;
}

int header(const std::string& input, const std::string& other, const std::string& output,
           const std::string& nameSpace) {
    const CharacterSet characters("UTF-8");
    const std::string file = readFile(input, MAX_TEXT_SIZE);
    const std::string otherFile = readFile(other, MAX_TEXT_SIZE);
    const TextReader texts(file, characters);
    const TextReader others(otherFile, characters);
    if (!report(input, texts.problems()) || !report(other, others.problems())) {
        return EXIT_FAILURE;
    }
    const bool isFirstWhole = report(input, findMissing(texts, others, other));
    const bool isSecondWhole = report(other, findMissing(others, texts, input));
    if (!report(other, findDifferences(others, texts, input)) || !isFirstWhole || !isSecondWhole) {
        return EXIT_FAILURE;
    }
    refuseToReplace(output, input);
    refuseToReplace(output, other);
    const std::string content = makeHeader(texts, nameSpace);
    // A header that stays as it is lets nothing be compiled again.
    if (access(output.c_str(), F_OK) != 0 || readFile(output, MAX_TEXT_SIZE) != content) {
        replaceFile(output, content);
    }
    return EXIT_SUCCESS;
}

int run(const Options& options) {
    if (options.help) {
        return help();
    }
    if (!options.nameSpace.empty()) {
        return header(options.files[0], options.files[1], options.files[2], options.nameSpace);
    }
    const CharacterSet characters(options.charset);
    return options.dump ? dump(options.files[0], characters)
                        : make(options.files[0], options.files[1], characters);
}

}  // namespace

int main(int argc, char** argv) {
    // A file size limit is then an error of write(), and the temporary file is removed.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    Options options;
    if (!readOptions(argc, argv, options)) {
        std::cerr << USAGE;
        return EXIT_USAGE;
    }
    try {
        return run(options);
    } catch (const std::bad_alloc&) {
        std::cerr << "mkcatalogue: not enough memory\n";
    } catch (const Failure& failure) {
        std::cerr << "mkcatalogue: " << failure.what() << '\n';
    }
    return EXIT_FAILURE;
}
