#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "gui/Export.h"

namespace ORVLib {
class FileDescriptor;
}

namespace ORVLib::Gui {

class CGIRequester;

/// The CGI request: its fields and its uploaded file.
///
/// The constructor reads the CGI environment and standard input. A body of more than
/// LARGEST_BODY_AT_START bytes stays unread until readSkipData(), so that a page can check the
/// request before it accepts a large upload. AbstractMain::exec() calls readSkipData().
///
/// The fields are user input: validate them, and escape them before they are printed.
///
/// @code
/// FormInfo request;
/// std::string name = "world";
/// request.getFormData("name", name);  // unchanged when the field is missing
/// TextString(name).printHTML();       // escapes
/// if (!request.getTemporaryFilePath().empty()) {
///     std::rename(request.getTemporaryFilePath().c_str(), "/var/tmp/kept");
/// }
/// @endcode
///
/// A URL-encoded field ends at its second "=": "a=b=c" is "b" in the field "a". A URL-encoded body
/// ends at its first NUL byte. Of a multipart field only the first line is kept. When several
/// fields have the same name, or several files are sent, the last one counts.
///
/// The upload is stored in a temporary file (mode 0600) that is deleted with this object and at
/// process exit, also when a signal ends the process, except SIGKILL. Move or copy it to keep it.
class ORVGUI_EXPORT FormInfo {
public:
    /// Values by field name.
    using FieldMap = std::map<std::string, std::string>;

    /// Largest body, in bytes, that the constructor reads (2 MiB).
    static constexpr int LARGEST_BODY_AT_START = 0x200000;

    /// Bytes of an uploaded file that are kept (90 MiB and 512 bytes). The rest is read and
    /// discarded.
    static constexpr unsigned int LARGEST_UPLOAD = 0x5A00200;

    /// The texts by which a multipart request and its parts are recognised.
    static constexpr std::string_view checkStringForm = "Content-Disposition: form-data; name=\"";
    static constexpr std::string_view checkStringFile = "filename=\"";
    static constexpr std::string_view checkStringType = "multipart/form-data; boundary=";

    /// The request of this process, for CommonDefaultPage. A program that has a FormInfo stores its
    /// address here, because standard input can be read only once. Not owned.
    static FormInfo* myInstance;

    /// Reads the request. Throws PException when standard input fails or ends before the announced
    /// length. Throws std::out_of_range when a name or value ends inside a "%" escape.
    FormInfo();
    virtual ~FormInfo();
    FormInfo(const FormInfo&) = delete;
    FormInfo& operator=(const FormInfo&) = delete;

    bool isPostMethod() const;

    /// Copies a field to `value`. Returns false and leaves `value` unchanged when there is no such
    /// field.
    bool getFormData(const std::string& name, std::string& value) const;

    /// Reads the fields `name`0 to `name`3 as decimal numbers into the four bytes at `address`.
    /// Only the low 8 bits of each number are kept, and text counts as 0: use IPAddressField to
    /// validate user input. Returns false when a field is missing (the bytes before it are
    /// written) and for null.
    bool getFormIPAddr(const std::string& name, unsigned char* address) const;

    /// All decoded fields as name=value, in the order of the names, joined with "&".
    std::string getQueryString();

    /// The start of the page's URL, without a path: scheme, host as the browser sent it, and port,
    /// which is always included. The scheme is "https" when the port is the daemon's HTTPS port,
    /// otherwise "http", also when the daemon does not answer. The host is user input.
    std::string getURLInfo(CGIRequester& requester);

    /// All fields, in the byte order of their names.
    const FieldMap& getFields() const { return m_fields; }

    /// True when a large body has not been read yet.
    bool isReadSkip() { return m_readSkip; }

    /// Reads the body that the constructor did not read. Throws the same exceptions.
    void readSkipData();

    /// The file name that the browser sent, without folders. It is user input and may contain any
    /// bytes. Empty when no file was chosen.
    const std::string& getUploadedFileName() const { return m_uploadedFileName; }

    /// Path of the temporary file. Empty when no file was sent or it could not be written.
    const std::string& getTemporaryFilePath() const { return m_temporaryFilePath; }

    /// Size of the temporary file in bytes.
    unsigned int getWrittenSize() const { return m_bytesWritten; }

    /// Frees the read buffer and deletes the temporary file. May be called more than once.
    void terminate();

private:
    // Bytes that are searched at a time. The buffer has space for them and for a block that waits
    // to be written.
    static constexpr unsigned int READ_BUFFER_SIZE = 0x10000;
    // A file is written in blocks of this size, at multiples of it. The page cache keeps such a
    // block in one piece, and a write that ends inside one costs much more.
    static constexpr unsigned int FILE_BLOCK_SIZE = 0x40000;

    void setURLInfo();
    void readPostData(int length);
    unsigned int readToBuffer(const char* from, const char* to, unsigned int limit);
    void readUrlEncoded(unsigned int length, unsigned int buffered);
    void tokenize(std::string_view text);
    static void decode(std::string& text);
    bool isBodyRead() const;

    void readMultipart(unsigned int buffered);
    char* setUploadedFileInfo(char* from, unsigned int& length);
    char* getNextBlock(char* from, char* to) const;
    bool getBlockEnd(char* from, char* to, char** end) const;
    char* setFileName(char* from, char* to, std::string& fieldName);
    static char* getNextLine(char* from, char* to);
    static char* skipHeaders(char* line, char* to);
    char* receiveField(char* from, char* to, const std::string& fieldName);
    char* receiveFile(char* from, char*& to);
    void topUpBuffer(char*& from, char*& to, unsigned int limit = READ_BUFFER_SIZE);

    FileDescriptor createTemporaryFile();
    void writeFile(FileDescriptor& file, const char* data, unsigned int length);
    void closeFile(FileDescriptor& file);
    void abandonFile(FileDescriptor& file, const char* operation);
    void removeTemporaryFile();

    FieldMap m_fields;
    std::string m_boundary;
    int m_contentLength = 0;
    std::unique_ptr<char[]> m_readBuffer;
    unsigned int m_bytesRead = 0;
    std::string m_uploadedFileName;
    std::string m_temporaryFilePath;
    unsigned int m_bytesWritten = 0;
    std::string m_host;
    std::string m_port;
    bool m_readSkip = false;
};

}  // namespace ORVLib::Gui
