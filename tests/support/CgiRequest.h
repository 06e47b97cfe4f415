#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

/// Puts a request where a CGI program finds it: into the environment and standard input.
class CgiRequest {
public:
    CgiRequest() : m_standardInput(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)) {
        for (const char* const name :
             {"REQUEST_METHOD", "QUERY_STRING", "CONTENT_LENGTH", "CONTENT_TYPE"}) {
            unsetenv(name);
        }
        setenv("HTTP_HOST", "board", 1);
        setenv("SERVER_PORT", "443", 1);
    }
    ~CgiRequest() {
        dup2(m_standardInput, STDIN_FILENO);
        close(m_standardInput);
    }
    CgiRequest(const CgiRequest&) = delete;
    CgiRequest& operator=(const CgiRequest&) = delete;

    void get(const std::string& query) {
        setenv("REQUEST_METHOD", "GET", 1);
        setenv("QUERY_STRING", query.c_str(), 1);
    }

    /// `length` is what the request announces.
    void post(const std::string& type, const std::string& body, const std::string& length) {
        setenv("REQUEST_METHOD", "POST", 1);
        setenv("CONTENT_TYPE", type.c_str(), 1);
        setenv("CONTENT_LENGTH", length.c_str(), 1);
        const int file = memfd_create("body", MFD_CLOEXEC);
        if (write(file, body.data(), body.size()) != static_cast<ssize_t>(body.size())) {
            std::abort();
        }
        lseek(file, 0, SEEK_SET);
        dup2(file, STDIN_FILENO);
        close(file);
    }
    void post(const std::string& type, const std::string& body) {
        post(type, body, std::to_string(body.size()));
    }
    void postForm(const std::string& body) { post("application/x-www-form-urlencoded", body); }
    void postMultipart(const std::string& boundary, const std::string& body) {
        post("multipart/form-data; boundary=" + boundary, body);
    }

private:
    int m_standardInput;
};
