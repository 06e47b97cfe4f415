#include "multicall/PageProcess.h"

#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>
#include <system_error>

#include "common/FileIo.h"
#include "multicall/Pages.h"
#include "multicall/Refusal.h"
#include "multicall/RequestBody.h"
#include "multicall/RequestStream.h"
#include "multicall/ScgiRequest.h"
#include "multicall/ServerLog.h"

namespace ORVLib::MultiCall {

namespace {

// Variables that belong to the server. Parameters of these names are ignored: a web server that
// passes ORV_* to CGI programs has the values that the page server has itself.
constexpr std::string_view OWN_PREFIXES[] = {"ORV_", "LD_", "MALLOC_", "GLIBC_"};
constexpr std::string_view OWN_NAMES[] = {"PATH", "TZ"};

constexpr std::size_t LONGEST_LOGGED_PATH = 200;

bool isOwn(std::string_view name) {
    for (const std::string_view own : OWN_NAMES) {
        if (name == own) {
            return true;
        }
    }
    for (const std::string_view prefix : OWN_PREFIXES) {
        if (name.substr(0, prefix.size()) == prefix) {
            return true;
        }
    }
    return false;
}

void setEnvironment(const ScgiHeader& header) {
    for (const auto& [name, value] : header.parameters) {
        if (!isOwn(name) && ::setenv(name.c_str(), value.c_str(), 1) != 0) {
            throw std::bad_alloc();
        }
    }
}

const Page& choosePage(const ScgiHeader& header) {
    const auto path = header.parameters.find("SCRIPT_NAME");
    const Page* const page = path != header.parameters.end() ? findPage(path->second) : nullptr;
    if (page == nullptr) {
        throw Refusal(Refusal::NOT_FOUND,
                      path == header.parameters.end()
                          ? "SCRIPT_NAME is missing"
                          : "no page is at " + path->second.substr(0, LONGEST_LOGGED_PATH));
    }
    return *page;
}

void setStandardDescriptors(const FileDescriptor& body, const FileDescriptor& connection) {
    if (::dup2(body.get(), STDIN_FILENO) < 0 || ::dup2(connection.get(), STDOUT_FILENO) < 0) {
        throw std::system_error(errno, std::generic_category(), "dup2");
    }
}

/// Null when the peer closed the connection without a request.
const Page* receiveRequest(RequestStream& stream, const FileDescriptor& connection,
                           const ServerOptions& options) {
    const std::string netstring = stream.receiveNetstring(options.largestHeader);
    if (netstring.empty()) {
        return nullptr;
    }
    const ScgiHeader header = parseScgiHeader(netstring, options.largestBody);
    setEnvironment(header);
    const Page& page = choosePage(header);
    setStandardDescriptors(receiveBody(stream, header.bodySize), connection);
    return &page;
}

void refuse(const char* status, const std::string& reason, RequestStream& stream, int connection) {
    logError("request refused: " + std::string(status).substr(0, 3) + ", " + reason);
    std::string answer("Status: ");
    answer.append(status)
        .append(
            "\nContent-Type: text/plain; charset=us-ascii\nCache-Control: no-store\n"
            "X-Content-Type-Options: nosniff\n\n")
        .append(status)
        .append("\n");
    // A client that is no longer there has no use for the answer.
    static_cast<void>(writeAll(connection, answer));
    ::shutdown(connection, SHUT_WR);
    stream.discard();
}

/// Null when the request has been answered.
const Page* preparePage(const FileDescriptor& connection, const ServerOptions& options) {
    RequestStream stream(connection.get(), std::chrono::seconds(options.requestTime));
    try {
        return receiveRequest(stream, connection, options);
    } catch (const Refusal& refusal) {
        refuse(refusal.getStatus(), refusal.what(), stream, connection.get());
    } catch (const std::exception& error) {
        refuse(Refusal::INTERNAL_ERROR, error.what(), stream, connection.get());
    }
    return nullptr;
}

/// The name of the process, by which the server logs a page that ended by a signal.
void setProcessName(const std::string& path) {
    ::prctl(PR_SET_NAME, path.c_str() + path.rfind('/') + 1);
}

}  // namespace

void servePage(FileDescriptor connection, const ServerOptions& options) noexcept {
    const Page* const page = preparePage(connection, options);
    connection.close();
    if (page == nullptr) {
        std::exit(EXIT_FAILURE);
    }
    setProcessName(page->path);
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
    ::alarm(static_cast<unsigned int>(options.pageTime));
    std::string path = page->path;
    char* argv[] = {path.data(), nullptr};
    std::exit(runPage(*page, 1, argv));
}

}  // namespace ORVLib::MultiCall
