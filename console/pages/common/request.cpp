// The request inspector: a form that can be sent in each of the ways, and the request that arrived.

#include <array>
#include <fstream>
#include <iostream>
#include <vector>

#include "common/Hex.h"
#include "framework/backend/Environment.h"
#include "framework/component/SkeletonPart.h"
#include "framework/page/PageMain.h"
#include "framework/page/Program.h"
#include "gui/HiddenField.h"
#include "gui/ResetButton.h"
#include "gui/SubmitButton.h"
#include "gui/TextString.h"
#include "protocol/Digest.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char PAGE_PATH[] = "/common/request.cgi";
constexpr char LANGUAGE_FIELD[] = "language";

/// A table of two columns, with or without heads, whose cells are texts that printing escapes.
class TextTable : public HTMLComponent {
public:
    TextTable() = default;
    TextTable(const std::string& nameHead, const std::string& valueHead)
        : m_nameHead(nameHead), m_valueHead(valueHead) {}

    void addRow(const std::string& head, const std::string& text) {
        m_rows.emplace_back(head, text);
    }

    void printHTML() const override {
        std::cout << "<table>\n";
        if (!m_nameHead.empty()) {
            printHeads();
        }
        for (const auto& [head, text] : m_rows) {
            std::cout << "<tr><th scope=\"row\">";
            head.printHTML();
            std::cout << "</th><td><code>";
            text.printHTML();
            std::cout << "</code></td></tr>\n";
        }
        std::cout << "</table>";
    }

    bool isError() const override { return false; }

private:
    void printHeads() const {
        std::cout << "<tr><th scope=\"col\">";
        TextString(m_nameHead).printHTML();
        std::cout << "</th><th scope=\"col\">";
        TextString(m_valueHead).printHTML();
        std::cout << "</th></tr>\n";
    }

    std::string m_nameHead;
    std::string m_valueHead;
    std::vector<std::pair<TextString, TextString>> m_rows;
};

/// A text with its control characters made visible.
std::string visible(const std::string& text) {
    std::string result;
    result.reserve(text.size());
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7f) {
            result += "\\x";
            result += ORVLib::formatHex({&character, 1});
        } else {
            result += character;
        }
    }
    return result;
}

Component fieldTable(const FormInfo& form) {
    if (form.getFields().empty()) {
        return makeText(text(TEXT_NO_FIELDS));
    }
    auto table = std::make_unique<TextTable>(text(TEXT_NAME), text(TEXT_VALUE));
    for (const auto& [name, value] : form.getFields()) {
        table->addRow(visible(name), visible(value));
    }
    return table;
}

/// The SHA-256 digest of a file in hexadecimal; empty when it cannot be read.
std::string digestOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    ORVLib::Protocol::Digest digest;
    std::array<char, 65536> block{};
    while (file) {
        file.read(block.data(), block.size());
        digest.add({block.data(), static_cast<std::size_t>(file.gcount())});
    }
    return file.eof() ? digest.getHex() : "";
}

Component fileTable(const FormInfo& form) {
    const std::string& path = form.getTemporaryFilePath();
    const std::string digest = path.empty() ? "" : digestOfFile(path);
    if (digest.empty()) {
        const bool isLost = !path.empty() || !form.getUploadedFileName().empty();
        return makeText(text(isLost ? TEXT_FILE_LOST : TEXT_NO_FILE),
                        isLost ? TextString::ERROR_COLOUR : TextString::PLAIN);
    }
    auto table = std::make_unique<TextTable>();
    table->addRow(text(TEXT_FILE_NAME), visible(form.getUploadedFileName()));
    table->addRow(text(TEXT_SIZE), std::to_string(form.getWrittenSize()) + " " + text(TEXT_BYTES));
    table->addRow(text(TEXT_SHA256), digest);
    return table;
}

Component languageLink(const char* language, const std::string& name) {
    return makeLink(std::string(PAGE_PATH) + '?' + LANGUAGE_FIELD + '=' + language, name, "_self");
}

void putLabels(SkeletonPart& body) {
    struct Label {
        const char* marker;
        Text text;
    };
    constexpr Label LABELS[] = {
        {"inspector", TEXT_INSPECTOR},        {"language_label", TEXT_LANGUAGE},
        {"text_label", TEXT_INPUT},           {"second_label", TEXT_SECOND_INPUT},
        {"file_label", TEXT_FILE_INPUT},      {"send_get", TEXT_SEND_GET},
        {"send_post", TEXT_SEND_POST},        {"method_label", TEXT_METHOD},
        {"fields_label", TEXT_FIELDS},        {"query_label", TEXT_QUERY_STRING},
        {"upload_label", TEXT_UPLOADED_FILE},
    };
    for (const Label& label : LABELS) {
        body.putText(label.marker, text(label.text));
    }
}

class InspectorMain : public PageMain {
public:
    explicit InspectorMain(FormInfo& form) : PageMain(form, Module::INSPECTOR) {}

protected:
    int execMain() override {
        chooseLanguage();
        beginPage(TEXT_INSPECTOR);
        printPage(makeBody());
        return 0;
    }

private:
    Component makeBody() {
        auto body = std::make_unique<SkeletonPart>("skeleton_request.txt");
        putLabels(*body);
        body->putSentence("purpose", text(TEXT_INSPECTOR_PURPOSE));
        putButtons(*body);
        body->putText("method", visible(variable("REQUEST_METHOD")));
        body->put("fields", fieldTable(*m_formInfo));
        body->putText("query", visible(m_formInfo->getQueryString()));
        body->put("file", fileTable(*m_formInfo));
        return body;
    }

    void putButtons(SkeletonPart& body) {
        body.put("english", languageLink("1", text(TEXT_ENGLISH)));
        body.put("japanese", languageLink("0", text(TEXT_JAPANESE)));
        body.put("language_field",
                 std::make_unique<HiddenField>(LANGUAGE_FIELD, std::to_string(m_language)));
        body.put("reset", std::make_unique<ResetButton>("reset", text(TEXT_RESET)));
        body.put("upload", std::make_unique<SubmitButton>("upload", text(TEXT_UPLOAD)));
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::InspectorMain>(
        {true, std::nullopt, Console::Places::ORDINARY});
}
