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

/// The request a page answers: its fields, and the file that came with it.
///
/// The constructor reads all of it from the CGI environment and standard input. A body above
/// LARGEST_BODY_AT_START bytes is left for readSkipData(), so that a page can look at the request
/// before it takes a large upload.
///
/// URL-encoded fields end at the second "=" ("a=b=c" holds "b"), and the body at its first NUL
/// byte. Of multipart fields the first line is kept, as it came. Of several fields with one name,
/// and of several files, the last one counts.
///
/// An uploaded file is stored in a temporary file, readable by its owner alone, that is deleted
/// with this object, and when the process ends: by exit(), or by a signal of its web server, of a
/// limit or of a fault. Only SIGKILL leaves it. Move or copy what is to stay.
class ORVGUI_EXPORT FormInfo {
public:
    /// Values by field name.
    using FieldMap = std::map<std::string, std::string>;

    /// Bytes of body up to which the constructor reads it.
    static constexpr int LARGEST_BODY_AT_START = 0x200000;

    /// Bytes of an uploaded file that are kept (90 MiB and 512); what follows is dropped.
    static constexpr unsigned int LARGEST_UPLOAD = 0x5A00200;

    /// What the reader looks for in a multipart request.
    static constexpr std::string_view checkStringForm = "Content-Disposition: form-data; name=\"";
    static constexpr std::string_view checkStringFile = "filename=\"";
    static constexpr std::string_view checkStringType = "multipart/form-data; boundary=";

    /// The process's own request. A program may put its FormInfo here so that the request is read
    /// once; it is not owned.
    static FormInfo* myInstance;

    /// Reads the request. Throws PException when standard input fails or ends before the announced
    /// length, and std::out_of_range when a name or value ends inside a "%" escape: such a request
    /// is refused as a whole.
    FormInfo();
    virtual ~FormInfo();
    FormInfo(const FormInfo&) = delete;
    FormInfo& operator=(const FormInfo&) = delete;

    bool isPostMethod() const;

    /// Puts the field's value into `value`. Returns false, with `value` untouched, when there is
    /// no such field.
    bool getFormData(const std::string& name, std::string& value) const;

    /// Reads the four fields `name`0 to `name`3 as decimal numbers into the four bytes at
    /// `address`, each cut to its low 8 bits. Returns false at the first that is missing, and for
    /// null.
    bool getFormIPAddr(const std::string& name, unsigned char* address) const;

    /// Every field as name=value in the order of the names, joined with "&", decoded as the
    /// fields are.
    std::string getQueryString();

    /// The URL the page was asked under, up to its path: scheme, host as the browser named it, and
    /// port, which is always there. The scheme is "https" when the daemon says that the port
    /// serves it, and "http" when the daemon cannot be asked. The host may hold any bytes: escape
    /// it like a field.
    std::string getURLInfo(CGIRequester& requester);

    /// All fields, in the byte order of their names.
    const FieldMap& getFields() const { return m_fields; }

    /// True while a large body waits for readSkipData().
    bool isReadSkip() { return m_readSkip; }

    /// Reads the body that the constructor left. Throws as the constructor does.
    void readSkipData();

    /// The name of the uploaded file as the browser sent it, without folders; it may hold any
    /// bytes. Empty when no file was chosen.
    const std::string& getUploadedFileName() const { return m_uploadedFileName; }

    /// Where the uploaded file lies. Empty when none came, and when it could not be written.
    const std::string& getTemporaryFilePath() const { return m_temporaryFilePath; }

    /// Bytes in the temporary file.
    unsigned int getWrittenSize() const { return m_bytesWritten; }

    /// Gives the read buffer back and removes the temporary file. May be called again.
    void terminate();

private:
    // What is looked at in one piece. The buffer has room for as much that waits to be written.
    static constexpr unsigned int READ_BUFFER_SIZE = 0x10000;

    void setURLInfo();
    void readPostData(int length);
    unsigned int readToBuffer(const char* from, const char* to, unsigned int limit);
    void readUrlEncoded(unsigned int length, unsigned int buffered);
    void tokenize(std::string_view rest);
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
