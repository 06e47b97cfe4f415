// Saves the board's settings as a file, and restores them from one.

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>

#include "framework/backend/Board.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/UploadPage.h"
#include "gui/MessageMgr.h"
#include "gui/ORVGUIUtil.h"
#include "protocol/Digest.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int SETTINGS_RESTORED = 441;
constexpr char BACKUP_NAME[] = "orv-settings.txt";
constexpr char FIRST_LINE[] = "orv-settings 1\n";
constexpr char DOWNLOAD_FIELD[] = "download";
constexpr char CONTENT_FIELD[] = "content";
constexpr char DIGEST_FIELD[] = "digest";

/// The content of a file that the browser saves.
class RawBytes : public HTMLComponent {
public:
    explicit RawBytes(std::string bytes) : m_bytes(std::move(bytes)) {}

    void printHTML() const override { std::cout << m_bytes; }
    bool isError() const override { return false; }

private:
    std::string m_bytes;
};

/// True for text that a hidden field carries unchanged, except for the line ends that browsers
/// send.
bool isPrintableLines(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char character) {
        return character == '\n' || (character >= ' ' && character <= '~');
    });
}

/// Browsers, and some editors, end lines with CR LF.
std::string withPlainLineEnds(std::string text) {
    MessageMgr::convertStr(text, "\r\n", "\n");
    return text;
}

/// The file. Of one that is too large for a backup, only as much as is still too large.
std::string readFile(const std::string& path) {
    constexpr std::size_t LONGEST_LINE_END = 2;
    std::ifstream file(path, std::ios::binary);
    std::string content((MAX_PAYLOAD_SIZE + 1) * LONGEST_LINE_END, '\0');
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    if (!file && !file.eof()) {
        throw std::runtime_error("the uploaded backup cannot be read");
    }
    content.resize(static_cast<std::size_t>(file.gcount()));
    return content;
}

class BackupPage : public UploadPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_BACKUP);

    explicit BackupPage(const PageContext& context)
        : UploadPage(context, FUNCTION, TEXT_BACKUP_PURPOSE, TEXT_BACKUP_FILE,
                     TEXT_CONFIRM_RESTORE) {
        setApplyLabel(TEXT_RESTORE);
        setCompletion(SETTINGS_RESTORED);
    }

protected:
    Component makePresent() override {
        auto facts = std::make_unique<LabelledList>();
        facts->add(text(TEXT_PRESENT_SETTINGS),
                   makeLink(ORVGUIUtil::getCGIPath(FUNCTION) + '?' + DOWNLOAD_FIELD + "=1",
                            text(TEXT_DOWNLOAD)));
        return std::make_unique<Card>(std::move(facts));
    }

    void receive(const std::string& path) override {
        const std::string content = withPlainLineEnds(readFile(path));
        const std::string size = sizeText(getContext().form.getWrittenSize());
        if (!checkContent(content, size)) {
            return;
        }
        const std::string digest = digestOf(content);
        addShown(TEXT_FILE_NAME, getContext().form.getUploadedFileName());
        addShown(TEXT_SIZE, size);
        addShown(TEXT_SHA256, digest);
        carry(CONTENT_FIELD, content);
        carry(DIGEST_FIELD, digest);
    }

    void apply() override {
        const std::string content = withPlainLineEnds(getField(CONTENT_FIELD));
        if (!checkContent(content, sizeText(content.size()))) {
            return;
        }
        if (digestOf(content) != getField(DIGEST_FIELD)) {
            refuse(TEXT_BACKUP_CHANGED);
        } else if (writeBytes(getRequester(), ITEM_BACKUP, content, {ERROR_DAMAGED}) != 0) {
            refuse(TEXT_BACKUP_DAMAGED);
        }
    }

private:
    bool checkContent(const std::string& content, const std::string& size) {
        if (content.size() > MAX_PAYLOAD_SIZE) {
            refuse(TEXT_BACKUP_TOO_LARGE, size);
        } else if (content.rfind(FIRST_LINE, 0) != 0 || !isPrintableLines(content)) {
            refuse(TEXT_NO_BACKUP, size);
        }
        return !isRefused();
    }
};

class BackupMain : public NetworkMain<BackupPage> {
public:
    using NetworkMain::NetworkMain;

protected:
    Component makeBody(const PageContext& context) override {
        if (context.form.getFields().count(DOWNLOAD_FIELD) == 0) {
            return NetworkMain::makeBody(context);
        }
        auto backup = std::make_unique<RawBytes>(readBytes(context.requester, ITEM_BACKUP));
        answerWithFile(BACKUP_NAME);
        return backup;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runUploadProgram<Console::BackupMain>(Console::BackupPage::FUNCTION);
}
