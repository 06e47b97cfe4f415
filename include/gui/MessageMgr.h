#pragma once

#include <fstream>
#include <memory>
#include <string>

#include "gui/Export.h"

namespace ORVLib::ORVUi {
class CsvInfoAccess;
}

namespace ORVLib::Gui {

/// The texts a page shows in its user's language, and what makes any text safe to show.
///
/// Language 0 reads the Japanese catalogue (EUC-JP), any other language the English one
/// (ISO-8859-1). One object lives as long as its page.
class ORVGUI_EXPORT MessageMgr {
public:
    /// Reads the language's catalogue. A catalogue that is missing, or too short for the table it
    /// announces, is logged; every string is then the fallback text.
    explicit MessageMgr(int language);
    virtual ~MessageMgr();
    MessageMgr(const MessageMgr&) = delete;
    MessageMgr& operator=(const MessageMgr&) = delete;

    /// The catalogue string number `id`, in the language's character set, not escaped.
    /// A number that the catalogue does not have gives "failed to read string for CGI".
    std::string getString(int id);

    /// The operator message `msgId`, formatted with the arguments that follow.
    /// REQUIRES: they are those that the message asks for, in number and type, and no text is null.
    /// A positive `code` is shown behind it: 26 as " (00:001a)".
    std::string getMessage(int msgId, int code, ...);

    /// As getMessage(), except that the code 0x700 is shown as 0xd00 with `expCode` in its low
    /// byte.
    template <typename... Arguments>
    std::string getExpMessage(int msgId, int code, unsigned char expCode, Arguments... arguments) {
        return getMessage(msgId, shownCode(code, expCode), arguments...);
    }

    /// Looks up the message number that belongs to `key`, the first column of `csv`; it stands in
    /// the second. Returns false, with `msgId` untouched, when the table is at fault, has no such
    /// record or holds no number other than 0 there.
    bool getCsvExMsgId(ORVUi::CsvInfoAccess& csv, unsigned int key, unsigned int& msgId);

    /// Prepares a text for a URL: a blank becomes "+"; "#" and bytes above 0x7f become "%XX".
    /// Everything else stays, "&", "=", "?", "%" and "+" included, so that whole URLs can be
    /// passed.
    static void encodeURL(std::string& text);

    /// Prepares a text for HTML: & < > and the double quote become entities, every blank a
    /// non-breaking one so that columns keep their width. The single quote stays: put attribute
    /// values between double quotes.
    static void convertHTML(std::string& text);

    /// Replaces every occurrence of `from`, left to right and without looking at what was put in.
    /// An empty `from` leaves the text as it is.
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
