#pragma once

#include <fstream>
#include <memory>
#include <string>

#include "gui/Export.h"

namespace ORVLib::ORVUi {
class CsvInfoAccess;
}

namespace ORVLib::Gui {

/// The texts of a page in its user's language, and the escaping of texts for HTML and URLs.
///
/// Language 0 is Japanese in EUC-JP, any other language English in ISO-8859-1. A page needs one
/// object, for as long as it is printed.
///
/// @code
/// MessageMgr messages(1);
/// constexpr int TEXT_USER_NAME = 30;
/// std::string label = messages.getString(TEXT_USER_NAME);
/// MessageMgr::convertHTML(label);
/// std::cout << label << messages.getMessage(1106, 0, "admin");  // takes one text
/// @endcode
class ORVGUI_EXPORT MessageMgr {
public:
    /// Reads the language's catalogue. If it is missing or damaged, a trace entry is written and
    /// every string is the fallback text of getString().
    explicit MessageMgr(int language);
    virtual ~MessageMgr();
    MessageMgr(const MessageMgr&) = delete;
    MessageMgr& operator=(const MessageMgr&) = delete;

    /// The catalogue's string number `id`, in the character set of the language, not escaped.
    /// For a missing string the fallback text "failed to read string for CGI".
    std::string getString(int id);

    /// The operator message `msgId`, formatted with the arguments after `code`, not escaped. A
    /// positive `code` is appended: 26 as " (00:001a)".
    /// REQUIRES: number and types of the arguments are those of the message; no text is null.
    std::string getMessage(int msgId, int code, ...);

    /// As getMessage(), for the code of an exception: 0x700 is shown as 0xd00 with `expCode` in
    /// its low byte.
    template <typename... Arguments>
    std::string getExpMessage(int msgId, int code, unsigned char expCode, Arguments... arguments) {
        return getMessage(msgId, shownCode(code, expCode), arguments...);
    }

    /// Looks up a message number in a table: the second column of the record whose first column is
    /// `key`. Returns false and leaves `msgId` unchanged when the table could not be read, has no
    /// such record, or has no number or 0 there.
    bool getCsvExMsgId(ORVUi::CsvInfoAccess& csv, unsigned int key, unsigned int& msgId);

    /// Encodes a whole URL: a blank becomes "+"; "#" and bytes above 0x7f become "%XX". The
    /// separators "&", "=", "?", "%" and "+" do not change, so a value that contains them is not
    /// encoded by this.
    static void encodeURL(std::string& text);

    /// Escapes a text for HTML: & < > and the double quote become entities. Every blank becomes a
    /// non-breaking space, so that columns keep their width. The single quote does not change: put
    /// attribute values in double quotes.
    static void convertHTML(std::string& text);

    /// Replaces every occurrence of `from` by `to`, from left to right. Replacements are not
    /// searched again. An empty `from` changes nothing.
    static void convertStr(std::string& text, const std::string& from, const std::string& to);

private:
    static int shownCode(int code, unsigned char expCode);
    bool readOffsets(unsigned int fileSize);

    int m_language;
    std::unique_ptr<unsigned int[]> m_offsets;
    unsigned int m_count = 0;
    std::streampos m_dataStart = 0;
    std::unique_ptr<std::ifstream> m_stream;
};

}  // namespace ORVLib::Gui
