#include "framework/component/Components.h"

#include <cstring>
#include <iostream>

#include "framework/component/PageText.h"
#include "gui/HyperLink.h"
#include "gui/MessageMgr.h"

using namespace ORVLib::Gui;

namespace Console {

std::string htmlText(std::string text) {
    MessageMgr::convertHTML(text);
    return text;
}

std::string sentenceText(const std::string& text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char character : text) {
        switch (character) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += character;
        }
    }
    return escaped;
}

Component makeText(const std::string& text, int colour) {
    return std::make_unique<TextString>(text, false, false, colour);
}

Component makeSentence(const std::string& text, int colour) {
    return std::make_unique<TextString>(sentenceText(text), false, true, colour);
}

Component makeLink(const std::string& url, const std::string& text, const std::string& target,
                   const std::string& cssClass) {
    return std::make_unique<HyperLink>(url, target, cssClass, "", false, makeText(text));
}

namespace {

std::string percentEncoded(const std::string& text) {
    constexpr char DIGITS[] = "0123456789ABCDEF";
    constexpr char PLAIN[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._";
    std::string encoded;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte != 0 && std::strchr(PLAIN, character) != nullptr) {
            encoded += character;
        } else {
            encoded.append({'%', DIGITS[byte >> 4], DIGITS[byte & 0xf]});
        }
    }
    return encoded;
}

}  // namespace

std::string pathWith(const std::string& path,
                     const std::vector<std::pair<std::string, std::string>>& fields) {
    std::string address = path;
    char separator = '?';
    for (const auto& [name, value] : fields) {
        address += separator + percentEncoded(name) + '=' + percentEncoded(value);
        separator = '&';
    }
    return address;
}

std::string addressWith(const std::string& path,
                        const std::vector<std::pair<std::string, std::string>>& fields) {
    std::string address = pathWith(path, fields);
    MessageMgr::convertStr(address, "&", "&amp;");
    return address;
}

void ComponentGroup::printHTML() const {
    for (const Component& component : m_components) {
        component->printHTML();
        std::cout << '\n';
    }
}

void LabelledList::add(const std::string& label, Component value) {
    m_rows.emplace_back(label, std::move(value));
}

void LabelledList::add(const std::string& label, const std::string& value) {
    add(label, makeText(value));
}

void LabelledList::printHTML() const {
    for (const auto& [label, value] : m_rows) {
        std::cout << "<p class=\"entry\"><span class=\"label\">";
        makeSentence(label)->printHTML();
        std::cout << "</span> <span class=\"value\">";
        value->printHTML();
        std::cout << "</span></p>\n";
    }
}

void Card::printHTML() const {
    std::cout << "<section class=\"card\">\n";
    m_content->printHTML();
    std::cout << "</section>";
}

void Table::printHTML() const {
    if (m_rows.empty()) {
        std::cout << "<p class=\"nothing\">";
        makeSentence(text(m_nothing))->printHTML();
        std::cout << "</p>\n";
        return;
    }
    std::cout << "<table class=\"list\">\n<thead><tr>";
    for (const Text heading : m_headings) {
        std::cout << "<th scope=\"col\">";
        TextString(text(heading)).printHTML();
        std::cout << "</th>";
    }
    std::cout << "</tr></thead>\n<tbody>\n";
    for (const std::vector<Component>& row : m_rows) {
        printRow(row);
    }
    std::cout << "</tbody>\n</table>\n";
}

void Table::printRow(const std::vector<Component>& cells) {
    std::cout << "<tr>";
    for (const Component& cell : cells) {
        std::cout << "<td>";
        cell->printHTML();
        std::cout << "</td>";
    }
    std::cout << "</tr>\n";
}

}  // namespace Console
